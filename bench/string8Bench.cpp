/// The 8-bit strings beside std::string: what short text costs in a fixed capacity.

#include "strings/qvString8.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

namespace {

constexpr char shortText[] = "ReserveCPUInteractive";

template <typename String>
void construct(benchmark::State& state)
{
    for (auto _ : state) {
        char const* text = shortText;
        benchmark::DoNotOptimize(text);
        String s(text);
        benchmark::DoNotOptimize(&s);
        benchmark::ClobberMemory();
    }
}

template <typename String>
void assign(benchmark::State& state)
{
    String s;
    for (auto _ : state) {
        char const* text = shortText;
        benchmark::DoNotOptimize(text);
        s = text;
        benchmark::DoNotOptimize(&s);
        benchmark::ClobberMemory();
    }
}

template <typename String>
void append(benchmark::State& state)
{
    String s;
    for (auto _ : state) {
        char const* text = shortText;
        benchmark::DoNotOptimize(text);
        s = "";
        s += text;
        s += '/';
        s += '1';
        benchmark::DoNotOptimize(&s);
        benchmark::ClobberMemory();
    }
}

template <typename String>
void copy(benchmark::State& state)
{
    String const s(shortText);
    for (auto _ : state) {
        String other(s);
        benchmark::DoNotOptimize(&other);
        benchmark::ClobberMemory();
    }
}

/// What a copy costs whose length the compiler knows to be bounded by the capacity: g++ expands
/// it in place to string instructions. The strings keep their copies where that is not known.
void boundedCopy(benchmark::State& state)
{
    char target[251];
    for (auto _ : state) {
        char const* text = shortText;
        benchmark::DoNotOptimize(text);
        std::size_t const length = std::strlen(text);
        std::memcpy(target, text, length < 250 ? length : 250);
        benchmark::DoNotOptimize(&target);
        benchmark::ClobberMemory();
    }
}

} // namespace

#define QV_BENCH(function)                                                                         \
    BENCHMARK(function<_qvString8_allSize<25>>)->Name(#function "/25");                            \
    BENCHMARK(function<_qvString8_allSize<250>>)->Name(#function "/250");                          \
    BENCHMARK(function<_qvString8_allSize<5000>>)->Name(#function "/5000");                        \
    BENCHMARK(function<std::string>)->Name(#function "/std::string")

QV_BENCH(construct);
QV_BENCH(assign);
QV_BENCH(append);
QV_BENCH(copy);
BENCHMARK(boundedCopy);
