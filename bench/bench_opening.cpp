#include "OpeningStage.h"
#include "Settle.h"

#include <tests/support/TestMain.h>

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

template <typename Make>
double timeToMake(Make make)
{
    const auto start = std::chrono::steady_clock::now();
    const auto widget = make();
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
    return spent.count();
}

// Tab host, bare forms, bare forms, tab host; the time is the tab host's.
void construction(benchmark::State &state)
{
    double subject = 0;
    double floor = 0;
    for (auto _ : state) {
        const double first = timeToMake(tabHost);
        floor += timeToMake(bareForms) + timeToMake(bareForms);
        const double second = timeToMake(tabHost);
        subject += first + second;
        state.SetIterationTime((first + second) / 2);
        settle();
    }
    state.counters["ratio"] = subject / floor;
}

BENCHMARK(construction)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
