// The road of an element from its name and text into a record: whole tasks with the elements that the mapping sends,
// and their log lines, which go to a sink that drops them.

#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"
#include "Platform/Log/Log.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string_view>
#include <utility>

namespace brackwater {
namespace {

struct SilentLog : LogSink {
    void receive(std::string_view /*text*/) override {}
};

/// Names and texts without dates and durations, whose reading has a price of its own.
constexpr auto kPlainElements = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"UID", "12"},
    {"ID", "12"},
    {"Name", "Dredge the outer basin"},
    {"Active", "1"},
    {"Manual", "0"},
    {"Type", "1"},
    {"IsNull", "0"},
    {"Priority", "500"},
    {"Milestone", "0"},
    {"Summary", "0"},
    {"Estimated", "0"},
    {"LevelingCanSplit", "1"},
    {"IgnoreResourceCalendar", "0"},
    {"FixedCost", "1250.5"},
    {"PercentComplete", "40"},
    {"PercentWorkComplete", "40"},
    {"ConstraintType", "0"},
    {"CalendarUID", "1"},
    {"OutlineLevel", "3"},
    {"UnknownElement", "1"},
});
constexpr auto kTimeElements = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"Start", "2012-06-04T08:00:00"},
    {"Finish", "2012-06-05T17:00:00"},
    {"Duration", "PT16H0M0S"},
    {"Work", "PT16H0M0S"},
});

template <typename Elements>
void addElements(MSPEXMLTaskAdapter& task, const Elements& elements) {
    for (const auto& [name, text] : elements)
        task.addChildElementWithName(name, text);
}

template <bool WithTimes>
void mapTask(benchmark::State& state) {
    const SilentLog log;
    std::size_t elements = kPlainElements.size() + (WithTimes ? kTimeElements.size() : 0);
    for ([[maybe_unused]] auto round : state) {
        MSPEXMLCollectionAdapter<MPPTask> tasks("Tasks", nullptr);
        const auto task = MSPEXMLTaskAdapter::elementWithName("Task", nullptr);
        addElements(*task, kPlainElements);
        if (WithTimes)
            addElements(*task, kTimeElements);
        tasks.addChild(task);
        benchmark::DoNotOptimize(tasks.collection().data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(elements));
}

BENCHMARK(mapTask<false>)->Name("task/plain elements");
BENCHMARK(mapTask<true>)->Name("task/all elements");

} // namespace
} // namespace brackwater

BENCHMARK_MAIN();
