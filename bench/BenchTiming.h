#pragma once

// Timing shared by the benchmarks: every phase runs kBenchRuns times and its median wall time counts.

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <type_traits>
#include <vector>

constexpr int kBenchRuns = 5;

// Keeps a phase's result observable so that the optimiser cannot drop the work.
inline volatile double g_benchSink;

// The wall time of one run.
template <class Action>
double Seconds(Action action) {
    const auto start = std::chrono::steady_clock::now();
    if constexpr (std::is_void_v<decltype(action())>)
        action();
    else
        g_benchSink = g_benchSink + static_cast<double>(action());
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

template <class Action>
double MedianSeconds(Action action) {
    std::vector<double> times;
    for (int run = 0; run < kBenchRuns; ++run)
        times.push_back(Seconds(action));
    std::sort(times.begin(), times.end());
    return times[kBenchRuns / 2];
}

// The process's peak resident memory so far, in KiB; -1 when the system does not tell.
inline long PeakResidentKiB() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.compare(0, 6, "VmHWM:") == 0) return std::stol(line.substr(6));
    return -1;
}
