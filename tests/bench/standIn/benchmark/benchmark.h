#pragma once

#include <cstdio>

/// What the benchmarks need of Google Benchmark to be registered: each prints its name and none
/// runs. So the rows are known without that library.
namespace benchmark {

struct State
{
    struct [[maybe_unused]] Turn
    {};
    struct Iterator
    {
        Turn operator*() const { return {}; }
        void operator++() {}
        bool operator!=(Iterator const&) const { return false; }
    };
    static Iterator begin() { return {}; }
    static Iterator end() { return {}; }
};

template <typename Body>
void RegisterBenchmark(char const* name, Body const&)
{
    std::puts(name);
}

inline void ClobberMemory() {}

template <typename Value>
void DoNotOptimize(Value const&)
{}

} // namespace benchmark
