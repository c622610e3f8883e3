#ifndef BENCH_RATIO_H
#define BENCH_RATIO_H

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>

/// Times an operation of the library and the plain operation that it stands against, turn by turn in one run, and
/// reports the speed ratio of their best times: 1 is as fast as plain, 0.5 half as fast.
template<class Plain, class Ours> void benchRatio(benchmark::State& state, double bytes, Plain&& plain, Ours&& ours)
{
    using clock = std::chrono::steady_clock;
    double bestPlain = std::numeric_limits<double>::max();
    double bestOurs = std::numeric_limits<double>::max();
    for (auto _ : state) {
        const auto start = clock::now();
        plain();
        const auto middle = clock::now();
        ours();
        const auto end = clock::now();
        bestPlain = std::min(bestPlain, std::chrono::duration<double>(middle - start).count());
        const double time = std::chrono::duration<double>(end - middle).count();
        bestOurs = std::min(bestOurs, time);
        state.SetIterationTime(time);
    }
    state.counters["ratio"] = bestPlain / bestOurs;
    state.counters["plain_ms"] = bestPlain * 1e3;
    state.counters["ours_ms"] = bestOurs * 1e3;
    if (bytes > 0.0) state.counters["GB/s"] = bytes / bestOurs * 1e-9;
}

#endif
