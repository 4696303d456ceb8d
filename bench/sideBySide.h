#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <vector>

namespace varnow::bench {

inline double secondsOn(clockid_t clock, const auto &work)
{
    const auto now = [clock] {
        timespec time{};
        clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    };
    const double start = now();
    work();
    return now() - start;
}

/// Processor seconds that `work` takes in all threads; time that other programs take does not count.
double seconds(const auto &work)
{
    return secondsOn(CLOCK_PROCESS_CPUTIME_ID, work);
}

/// Seconds on the clock on the wall.
double wallSeconds(const auto &work)
{
    return secondsOn(CLOCK_MONOTONIC, work);
}

inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Measures two things in turn, once per iteration, so that whatever slows the machine down meets both.
/// Each returns what it measured. The table shows the medians, and the median of the ratios beside
/// `atMost`.
template <class Ours, class Floor>
void sideBySide(benchmark::State &state, double atMost, Ours ours, Floor floor)
{
    std::vector<double> measured, beside, ratios;
    for (auto _ : state) {
        measured.push_back(ours());
        beside.push_back(floor());
        ratios.push_back(measured.back() / beside.back());
        state.SetIterationTime(measured.back());
    }
    state.counters["measured"] = median(measured);
    state.counters["beside"] = median(beside);
    state.counters["ratio"] = median(ratios);
    state.counters["atMost"] = atMost;
}

/// Adds a row to the table: a function of a benchmark::State that measures that many times. `unit` is that
/// of the figures.
template <class Function> void addRow(const char *name, const char *unit, int iterations, Function function)
{
    benchmark::RegisterBenchmark(name,
                                 [=](benchmark::State &state) {
                                     function(state);
                                     state.SetLabel(unit);
                                 })
        ->UseManualTime()
        ->Iterations(iterations);
}

} // namespace varnow::bench
