/// The checksums beside plain byte loops over the same tables, and CRC-32 beside zlib's, which
/// slices its tables.

#include "support/qvCRC.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

template <typename State>
State plainReflected(State state, unsigned char const* data, unsigned length, State const* table)
{
    for (unsigned i = 0; i < length; ++i)
        state = (state >> 8) ^ table[(state ^ data[i]) & 0xFF];
    return state;
}

unsigned plain32(unsigned char const* data, unsigned length)
{
    return ~plainReflected(0xFFFFFFFFu, data, length, qvCRCulTable);
}

std::uint64_t plain64(unsigned char const* data, unsigned length)
{
    return plainReflected(std::uint64_t{0}, data, length, crctab64.data());
}

unsigned plain16(unsigned char const* data, unsigned length)
{
    unsigned state = 0;
    for (unsigned i = 0; i < length; ++i)
        state = ((state << 8) & 0xFFFF) ^ crc16tab[(state >> 8) ^ data[i]];
    return state;
}

unsigned ours32(unsigned char const* data, unsigned length)
{
    return qvCRCCalc(data, length);
}

std::uint64_t ours64(unsigned char const* data, unsigned length)
{
    return qvCRCCalc64(data, length);
}

unsigned ours16(unsigned char const* data, unsigned length)
{
    return qvCRCCalc16(data, length);
}

template <auto Sum>
void checksum(benchmark::State& state)
{
    qvCRCInitialize();
    auto const length = static_cast<unsigned>(state.range(0));
    std::vector<unsigned char> data(length);
    for (unsigned i = 0; i < length; ++i)
        data[i] = static_cast<unsigned char>(i * 167 + (i >> 8));
    for (auto _ : state) {
        unsigned char const* bytes = data.data();
        benchmark::DoNotOptimize(bytes);
        benchmark::DoNotOptimize(Sum(bytes, length));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * length);
}

} // namespace

#define QV_BENCH(name, function) BENCHMARK(checksum<function>)->Name(name)->Arg(31)->Arg(4096)

QV_BENCH("crc32/ours", ours32);
QV_BENCH("crc32/plainLoop", plain32);
QV_BENCH("crc64/ours", ours64);
QV_BENCH("crc64/plainLoop", plain64);
QV_BENCH("crc16/ours", ours16);
QV_BENCH("crc16/plainLoop", plain16);
