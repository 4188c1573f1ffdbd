/// The checksums beside plain byte loops over the same tables, and CRC-32 beside zlib's, which
/// slices its tables.

#include "bench/measure.h"
#include "qv/support/qvCRC.h"

#include <zlib.h>

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

unsigned char plainXor(unsigned char const* data, unsigned length)
{
    unsigned char sum = 0;
    for (unsigned i = 0; i < length; ++i)
        sum = static_cast<unsigned char>(sum ^ data[i]);
    return sum;
}

unsigned char plainXorOfUnits(unsigned char const* data, unsigned length)
{
    unsigned char sum = 0;
    for (unsigned i = 0; i < length / 2; ++i)
        sum = static_cast<unsigned char>(sum ^ data[2 * i]);
    return sum;
}

unsigned plainMirror(unsigned value, int bits)
{
    unsigned mirrored = 0;
    for (int i = 0; i < bits; ++i)
        mirrored |= (value >> i & 1) << (bits - 1 - i);
    return mirrored;
}

void ofLength(unsigned length)
{
    qvCRCInitialize();
    std::vector<unsigned char> data(length);
    for (unsigned i = 0; i < length; ++i)
        data[i] = static_cast<unsigned char>(i * 167 + (i >> 8));
    auto const sum = [&](std::string const& name, std::string const& who, auto function) {
        measure(name + "/block/" + std::to_string(length) + "/" + who, [data, function] {
            return function(data.data(), static_cast<unsigned>(data.size()));
        });
    };

    sum("crc32", "ours", [](auto* bytes, unsigned count) { return qvCRCCalc(bytes, count); });
    sum("crc32", "plainLoop", plain32);
    sum("crc32", "zlib", [](auto* bytes, unsigned count) { return crc32(0, bytes, count); });
    sum("crc64", "ours", [](auto* bytes, unsigned count) { return qvCRCCalc64(bytes, count); });
    sum("crc64", "plainLoop", plain64);
    sum("crc16", "ours", [](auto* bytes, unsigned count) { return qvCRCCalc16(bytes, count); });
    sum("crc16", "plainLoop", plain16);
    sum("crc32Part", "ours", [](auto* bytes, unsigned count) {
        unsigned state = 0xFFFFFFFFu;
        qvCRCPartial(&state, bytes, count);
        return state;
    });
    sum("crc32Part", "plainLoop", [](auto* bytes, unsigned count) {
        return plainReflected(0xFFFFFFFFu, bytes, count, qvCRCulTable);
    });
    sum("xor", "ours", [](auto* bytes, unsigned count) { return qvCRCCalc8(bytes, count, false); });
    sum("xor", "plainLoop", plainXor);
    sum("xorOfUnits", "ours",
        [](auto* bytes, unsigned count) { return qvCRCCalc8(bytes, count / 2, true); });
    sum("xorOfUnits", "plainLoop", plainXorOfUnits);
}

void mirror()
{
    measure("mirror/bits/32/ours", [value = 0u]() mutable { return qvCRCReflect(++value, 32); });
    measure("mirror/bits/32/plainLoop",
            [value = 0u]() mutable { return plainMirror(++value, 32); });
}

[[maybe_unused]] bool const registered = (ofLength(31), ofLength(4096), mirror(), true);

} // namespace
