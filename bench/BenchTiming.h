#pragma once

// Timing shared by the benchmarks: every phase runs kBenchRuns times and its median wall time counts.

#include <algorithm>
#include <chrono>
#include <type_traits>
#include <vector>

constexpr int kBenchRuns = 5;

// Keeps a phase's result observable so that the optimiser cannot drop the work.
inline volatile double g_benchSink;

template <class Action>
double MedianSeconds(Action action) {
    std::vector<double> times;
    for (int run = 0; run < kBenchRuns; ++run) {
        const auto start = std::chrono::steady_clock::now();
        if constexpr (std::is_void_v<decltype(action())>)
            action();
        else
            g_benchSink = g_benchSink + static_cast<double>(action());
        times.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    std::sort(times.begin(), times.end());
    return times[kBenchRuns / 2];
}
