#pragma once

#include <benchmark/benchmark.h>

#include <string>

/// Registers a benchmark; `body` is one turn of it. The result of `body` counts as used, and all
/// memory as changed before the next turn, so nothing is computed ahead or left out.
///
/// Names are `operation/what/size/who`. All benchmarks that differ in `who` alone do the same work
/// on the same text: `ours` and its peers, which `targets.py` puts side by side.
template <typename Body>
void measure(std::string const& name, Body body)
{
    benchmark::RegisterBenchmark(name.c_str(), [body](benchmark::State& state) mutable {
        for (auto _ : state) {
            benchmark::ClobberMemory();
            benchmark::DoNotOptimize(body());
        }
    });
}
