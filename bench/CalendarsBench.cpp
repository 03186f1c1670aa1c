// Calendars out of schedules: the folding of many events into exceptions. The time a step of ten takes is to grow by
// ten and a little, since the events are sorted.

#include "TWMSPCommon/MSPExportMapper/MSPECalendarExceptions.h"

#include <benchmark/benchmark.h>

namespace brackwater {
namespace {

constexpr double kDay = 86400.0;

/// One event a day, each of three days.
void mapEvents(benchmark::State& state) {
    std::vector<MSPEZelbEventInfo> events;
    for (std::int64_t count = 0; count < state.range(0); ++count) {
        const double from = static_cast<double>(count) * kDay;
        const double start = static_cast<double>(count % 7) * 3600.0;
        events.emplace_back(Date{from}, Date{from + 3 * kDay - 1.0}, start, start + 3600.0);
    }
    for ([[maybe_unused]] auto round : state) {
        MSPECalendarExceptions group("Group", true, events);
        group.mapEvents();
        benchmark::DoNotOptimize(group.exceptionsCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(mapEvents)->Name("exceptions")->RangeMultiplier(10)->Range(200, 200'000);

} // namespace
} // namespace brackwater

BENCHMARK_MAIN();
