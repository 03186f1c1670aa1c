// Calendars out of schedules: the folding of many events into exceptions, and a hierarchy of resources, groups in
// groups to twenty levels, a third of all with schedules. Ten times the input is to take ten times the time and a
// little.

#include "Platform/Log.h"
#include "Platform/XMLDocument.h"
#include "TWMSPCommon/MSPExportMapper/MSPEBaseline.h"
#include "TWMSPCommon/MSPExportMapper/MSPECalendarExceptions.h"
#include "TWMSPCommon/MSPExportMapper/MSPECalendarMapper.h"
#include "TWMSPCommon/MSPExportMapper/MSPEMapper.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

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

struct Hierarchy {
    std::unique_ptr<XMLDocument> document;
    std::vector<XMLElement> resources;
    std::vector<std::size_t> parents; ///< places in the list above; the top is its own
};

/// A resource in a hundred is a group, in the group before it or, every twenty groups, in the top; the others hang on
/// the last group.
Hierarchy hierarchyOfSize(std::size_t count) {
    constexpr std::size_t kResourcesPerGroup = 100;
    constexpr std::size_t kLevels = 20;
    const std::string schedule = "<schedule><schedule-day day-of-week='tuesday'><time-span start-time='28800' "
                                 "end-time='43200'/></schedule-day><calendar name='Regatta' overtime='true'><event "
                                 "start='2012-06-01T18:00:00Z' end='2012-06-02T20:00:00Z'/></calendar></schedule>";
    Hierarchy hierarchy;
    std::string text = "<scenario>";
    std::size_t lastGroup = 0;
    for (std::size_t place = 0; place < count; ++place) {
        const bool isGroup = place % kResourcesPerGroup == 0;
        const bool beginsAnew = place / kResourcesPerGroup % kLevels == 0;
        hierarchy.parents.push_back(isGroup && beginsAnew ? 0 : lastGroup);
        if (isGroup)
            lastGroup = place;
        text += fmt::format("<resource id='r{0}'><name>Resource {0}</name>{1}</resource>", place,
                            place % 3 == 1 ? schedule : "");
    }
    hierarchy.document = XMLDocument::readText(text + "</scenario>", "hierarchy");
    hierarchy.resources = hierarchy.document->rootElement().objectsForXQuery(XMLQuery("resource"));
    return hierarchy;
}

void mapHierarchy(benchmark::State& state) {
    const SilentLog log;
    const Hierarchy hierarchy = hierarchyOfSize(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto round : state) {
        MSPEMapper coordinator(nullptr, nullptr, {}, std::nullopt);
        MSPECalendarMapper mapper(&coordinator);
        mapper.mapCalendarForResource(hierarchy.resources.front(), std::nullopt);
        for (std::size_t place = 1; place < hierarchy.resources.size(); ++place)
            mapper.mapCalendarForResource(hierarchy.resources[place], hierarchy.resources[hierarchy.parents[place]]);
        mapper.setTopScheduleKey("r0");
        mapper.buildCalendarHierarchy();
        benchmark::DoNotOptimize(mapper.calendars()->collection().data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(mapHierarchy)->Name("hierarchy")->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brackwater

BENCHMARK_MAIN();
