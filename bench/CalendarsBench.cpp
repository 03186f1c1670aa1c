// Calendars out of schedules: the folding of many events into exceptions, and a hierarchy of resources, groups in
// groups to twenty levels, a third of all with schedules. Ten times the input is to take ten times the time and a
// little.

#include "Platform/Log/Log.h"
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaseline.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarExceptions.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "support/ScenarioBuilder.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <vector>

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

BENCHMARK(mapEvents)->Name("exceptions")->RangeMultiplier(10)->Range(1'000, 100'000);

struct SilentLog : LogSink {
    void receive(std::string_view /*text*/) override {}
};

constexpr const char* kSchedule =
    "<schedule><schedule-day day-of-week='tuesday'><time-span start-time='28800' end-time='43200'/></schedule-day>"
    "<calendar name='Regatta' overtime='true'><event start='2012-06-01T18:00:00Z' end='2012-06-02T20:00:00Z'/>"
    "</calendar></schedule>";

/// A hundred resources a group; twenty groups hang in one another, the first of them in the top.
std::shared_ptr<XMLDocument> scenarioOfResources(std::int64_t count) {
    constexpr std::int64_t kResourcesPerGroup = 100;
    constexpr std::int64_t kLevels = 20;
    const std::int64_t groups = count / kResourcesPerGroup;
    std::string chains;
    for (std::int64_t group = 1; group <= groups; group += kLevels)
        chains += fmt::format("{}r{}", chains.empty() ? "" : ",", group);

    auto scenario = test::ScenarioBuilder::withRoots(chains);
    const auto add = [&scenario](std::int64_t id, const std::string& items) {
        scenario.resource(fmt::format("r{}", id), fmt::format("name=R{} {}", id, items), id % 3 == 0 ? kSchedule : "");
    };
    for (std::int64_t group = 1; group <= groups; ++group) {
        std::string children = group % kLevels == 0 || group == groups ? "" : fmt::format("r{},", group + 1);
        const std::int64_t first = groups + (group - 1) * (kResourcesPerGroup - 1);
        for (std::int64_t place = 1; place < kResourcesPerGroup; ++place) {
            children += fmt::format("{}r{}", place == 1 ? "" : ",", first + place);
            add(first + place, "type=Staff");
        }
        add(group, "type=Group child=" + children);
    }
    return scenario.document();
}

/// A whole map with its post-processing, in CPU time; releasing the result does not count. "step" is how many times the
/// time of the size before it takes.
void mapResources(benchmark::State& state) {
    static double timeOfTheSizeBefore = 0;
    const SilentLog log;
    const std::shared_ptr<XMLDocument> document = scenarioOfResources(state.range(0));
    double time = 0;
    for ([[maybe_unused]] auto round : state) {
        MSPEMapper mapper(document, test::tableOfContents(), {}, std::nullopt);
        const std::clock_t begin = std::clock();
        mapper.map();
        const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        time += seconds;
        state.SetIterationTime(seconds);
    }
    time /= static_cast<double>(state.iterations());
    if (timeOfTheSizeBefore > 0)
        state.counters["step"] = time / timeOfTheSizeBefore;
    timeOfTheSizeBefore = time;
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(mapResources)
    ->Name("resources")
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Iterations(10)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brackwater

BENCHMARK_MAIN();
