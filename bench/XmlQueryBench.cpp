// What a mapper asks of a source document: questions by id, which must cost the same in a document of any size,
// look-ups of the children of a task, and the reading of the document itself, against which all of it is to be held.

#include "Platform/Xml/XMLDocument.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace brackwater {
namespace {

std::string scenarioOf(std::int64_t tasks) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<scenario xmlns=\"http://x.example/v2\">\n";
    for (std::int64_t task = 0; task < tasks; ++task)
        text += fmt::format("  <task id=\"t{0}\">\n    <title>Task number {0}</title>\n    <type>task</type>\n"
                            "    <start-date>2024-01-01T08:00:00.000Z</start-date>\n"
                            "    <end-date>2024-01-02T08:00:00.000Z</end-date>\n    <duration>28800</duration>\n"
                            "    <effort>28800</effort>\n    <effort-done>0</effort-done>\n    <priority>3</priority>\n"
                            "    <assignment idref=\"r{1}\" units=\"1\"/>\n  </task>\n",
                            task, task % 50);
    return text + "</scenario>\n";
}

struct Scenario {
    explicit Scenario(std::int64_t tasks) : document(XMLDocument::readText(scenarioOf(tasks), "bench")) {
        for (std::int64_t task = 0; task < tasks; ++task)
            taskIds.push_back(fmt::format("t{}", task * 7919 % tasks)); // not in document order
    }

    std::unique_ptr<XMLDocument> document;
    std::vector<std::string> taskIds;
};

void readDocument(benchmark::State& state) {
    const std::string text = scenarioOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(XMLDocument::readText(text, "bench"));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void buildIndex(benchmark::State& state) {
    const Scenario scenario(state.range(0));
    XMLElement root = scenario.document->rootElement();
    for (auto _ : state) {
        root.setAttribute("id", "r"); // drops the index
        benchmark::DoNotOptimize(root.lastObjectForXQuery("task[@id='t0']"));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void taskById(benchmark::State& state) {
    const Scenario scenario(state.range(0));
    const XMLElement root = scenario.document->rootElement();
    std::size_t next = 0;
    for (auto _ : state) {
        const std::string& id = scenario.taskIds[next++ % scenario.taskIds.size()];
        benchmark::DoNotOptimize(root.lastObjectForXQuery(XMLQuery::childWithValue("task", "id", id)));
    }
    state.SetItemsProcessed(state.iterations());
}

void assignmentByResourceAndTask(benchmark::State& state) {
    const Scenario scenario(state.range(0));
    const XMLElement root = scenario.document->rootElement();
    std::size_t next = 0;
    for (auto _ : state) {
        const std::string& id = scenario.taskIds[next++ % scenario.taskIds.size()];
        benchmark::DoNotOptimize(
            root.lastObjectForXQuery(XMLQuery::anyDepthWithParentValue("assignment", "idref", "r7", "id", id)));
    }
    state.SetItemsProcessed(state.iterations());
}

// All children that a mapper asks for, one question each; an item is a question.
void childrenOfATask(benchmark::State& state) {
    static constexpr std::array<XMLQuery, 12> queries = {"title",       "type",   "start-date", "end-date",
                                                         "duration",    "effort", "priority",   "schedule-type",
                                                         "static-cost", "split",  "note",       "assignment"};
    const Scenario scenario(state.range(0));
    const std::vector<XMLElement> tasks = scenario.document->rootElement().objectsForXQuery("task");
    std::size_t next = 0;
    for (auto _ : state) {
        const XMLElement task = tasks[next++ % tasks.size()];
        for (const XMLQuery& query : queries)
            benchmark::DoNotOptimize(task.lastObjectForXQuery(query));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(queries.size()));
}

constexpr std::int64_t kSmall = 10;
constexpr std::int64_t kLarge = 100'000;

BENCHMARK(readDocument)->Arg(kSmall)->Arg(kLarge)->Unit(benchmark::kMillisecond);
BENCHMARK(buildIndex)->Arg(kSmall)->Arg(kLarge)->Unit(benchmark::kMillisecond);
BENCHMARK(taskById)->Arg(kSmall)->Arg(kLarge);
BENCHMARK(assignmentByResourceAndTask)->Arg(kSmall)->Arg(kLarge);
BENCHMARK(childrenOfATask)->Arg(kSmall)->Arg(kLarge);

} // namespace
} // namespace brackwater

BENCHMARK_MAIN();
