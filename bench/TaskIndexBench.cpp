// The passes over a scenario before any task is mapped: the parsed form of every task, their index, and a walk over the
// tree that looks each child up by its id. Compared with the parsing of the same document by libxml2 alone, in turn.
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <libxml/parser.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace brackwater {
namespace {

constexpr std::int64_t kTasksOfGroup = 100;

std::string taskText(std::int64_t number, const std::string& type, const std::string& children) {
    return fmt::format("<task id=\"t{}\"><title>Task {}</title><type>{}</type>"
                       "<start-date>2027-03-01T08:00:00Z</start-date><end-date>2027-03-05T17:00:00Z</end-date>"
                       "<duration>28800</duration><effort>28800</effort><effort-done>7200</effort-done>"
                       "<priority>{}</priority>{}</task>\n",
                       number, number, type, number % 10, children);
}

std::string childReference(std::int64_t number) { return fmt::format("<child-task idref=\"t{}\"/>", number); }

// Tasks in groups of a hundred, all groups below the top task.
std::string scenarioText(std::int64_t tasks) {
    std::string groups, references, text;
    for (std::int64_t group = 1; group <= tasks / kTasksOfGroup; ++group) {
        std::string children;
        for (std::int64_t i = 0; i < kTasksOfGroup; ++i) {
            const std::int64_t number = tasks + group * kTasksOfGroup + i;
            children += childReference(number);
            text += taskText(number, "task", "");
        }
        groups += taskText(group, "group", children);
        references += childReference(group);
    }
    return "<scenario xmlns=\"http://tarnwick.example/namespace/Tarnwick/v2\">" + taskText(0, "group", references) +
           groups + text + "</scenario>";
}

double secondsSince(std::chrono::steady_clock::time_point begin) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double parse(const std::string& text) {
    const auto begin = std::chrono::steady_clock::now();
    xmlDoc* document = xmlReadMemory(text.data(), static_cast<int>(text.size()), "plan.xml", nullptr, XML_PARSE_NONET);
    const double seconds = secondsSince(begin);
    xmlFreeDoc(document);
    return seconds;
}

std::size_t walk(XMLElement scenario, XMLElement task) {
    std::size_t met = 0;
    std::vector<XMLElement> open{task};
    while (!open.empty()) {
        const XMLElement element = open.back();
        open.pop_back();
        ++met;
        for (const XMLElement reference : element.objectsForXQuery("child-task")) {
            const auto id = reference.attributeView("idref").value_or("");
            if (const auto child = singleObjectForXQuery(scenario, XMLQuery::childWithValue("task", "id", id)))
                open.push_back(*child);
        }
    }
    return met;
}

double indexAndWalk(XMLDocument& document, std::size_t& met) {
    const auto begin = std::chrono::steady_clock::now();
    const XMLElement scenario = document.rootElement();
    std::deque<MSPEScheduledTaskInfo> infos;
    std::unordered_map<std::string_view, const MSPEScheduledTaskInfo*> index;
    for (auto element = scenario.firstChildElement(); element; element = element->nextSiblingElement()) {
        const MSPEScheduledTaskInfo& info = infos.emplace_back(*element);
        index.insert_or_assign(info.uid(), &info);
    }
    met = walk(scenario, *scenario.firstChildElement());
    return secondsSince(begin);
}

void againstTheParser(benchmark::State& state) {
    const std::string text = scenarioText(state.range(0));
    double parsed = 0, indexed = 0;
    std::size_t met = 0;
    for ([[maybe_unused]] auto iteration : state) {
        // A fresh document: the index by id is part of what is measured.
        const auto document = XMLDocument::readText(text, "plan.xml");
        const double now = indexAndWalk(*document, met);
        indexed += now;
        parsed += parse(text);
        state.SetIterationTime(now);
    }
    if (met != static_cast<std::size_t>(1 + state.range(0) / kTasksOfGroup + state.range(0)))
        state.SkipWithError("the walk did not meet every task");
    state.counters["ratio"] = indexed / parsed;
}

BENCHMARK(againstTheParser)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brackwater

BENCHMARK_MAIN();
