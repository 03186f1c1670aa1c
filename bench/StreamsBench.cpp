// Writes a project of tasks, assignments and links as the storages of a compound file, and the same bytes again, stream
// by stream, straight through the library. The ratio of the two is what the stream writers cost.

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "MPPXMLDOMFilter/Streams/MPP12AssignmentWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12RscWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12TaskWriter.h"
#include "MPPXMLDOMFilter/Streams/MPPCalendarWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPConstraintWriters.h"
#include "Platform/Log/Log.h"
#include "support/MemoryTemplate.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-stdio.h>
#include <gsf/gsf-utils.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <unistd.h>

namespace brackwater {
namespace {

constexpr std::size_t kResources = 1000;

struct SilentLog : LogSink {
    void receive(std::string_view /*text*/) override {}
};

std::unique_ptr<MPPProject> projectOfSize(std::size_t count) {
    auto project = std::make_unique<MPPProject>();
    project->title = "Plan";
    const Date start{1200000000};
    for (std::size_t i = 0; i < kResources; ++i) {
        auto resource = std::make_shared<MPPResource>();
        resource->ID = i + 1;
        resource->name = fmt::format("Resource {}", i);
        project->resources.push_back(std::move(resource));
    }
    for (std::size_t i = 0; i < count; ++i) {
        auto task = std::make_shared<MPPTask>();
        task->ID = i + 1;
        task->title = fmt::format("Task number {}", i);
        task->parent = i % 10 == 0 ? nullptr : project->tasks[i - i % 10].get();
        task->createDate = start;
        task->startDate = start.advancedBy(static_cast<double>(i) * 3600);
        task->endDate = task->startDate->advancedBy(28800);
        task->duration = 28800;
        task->work = task->remainingWork = 8;
        auto assignment = std::make_shared<MPPAssignment>();
        assignment->ID = i + 1;
        assignment->task.setRecord(task.get());
        assignment->resource.setRecord(project->resources[i % kResources].get());
        assignment->work = assignment->remainingWork = 8;
        assignment->startDate = task->startDate;
        assignment->finishDate = task->endDate;
        project->assignments.push_back(std::move(assignment));
        if (i > 0) {
            auto link = std::make_shared<MPPConstraint>();
            link->ID = i;
            link->task1.setRecord(project->tasks.back().get());
            link->task2.setRecord(task.get());
            link->constraintType = 1;
            project->constraints.push_back(std::move(link));
        }
        project->tasks.push_back(std::move(task));
    }
    MPP12TaskWriter::preprocessProject(*project);
    MPP12RscWriter::preprocessProject(*project);
    MPP12AssignmentWriter::preprocessProject(*project);
    MPP12CalendarWriter::preprocessProject(*project);
    return project;
}

std::string outputPath() {
    return (std::filesystem::temp_directory_path() / fmt::format("streams-bench-{}.mpp", getpid())).string();
}

template <typename Writer>
void writeStorage(MPPFormatWriter& root, const char* name, MPPProject& project) {
    static const auto storageOfTemplate = test::memoryTemplate({{"Props", {1, 2}}, {"VarMeta", {3, 4}}});
    std::shared_ptr<MPPFormatWriter> storage = root.createChildWithName(name, true);
    Writer writer(storage, storageOfTemplate);
    if (!writer.writeDataForProject(&project))
        throw std::runtime_error(writer.failureReason());
}

void writeThroughWriters(MPPProject& project) {
    MPPFormatWriter root(FileURL::fileURLWithPath(outputPath(), false));
    if (!root.open())
        throw std::runtime_error("the output cannot be created");
    writeStorage<MPP12TaskWriter>(root, "TBkndTask", project);
    writeStorage<MPP12RscWriter>(root, "TBkndRsc", project);
    writeStorage<MPP12AssignmentWriter>(root, "TBkndAssn", project);
    writeStorage<MPP12CalendarWriter>(root, "TBkndCal", project);
    writeStorage<MPP12ConstraintWriter>(root, "TBkndCons", project);
    if (!root.close())
        throw std::runtime_error("the output cannot be finished");
}

using Stream = std::pair<std::string, std::vector<std::uint8_t>>;
using Storage = std::pair<std::string, std::vector<Stream>>;

std::vector<Storage> storagesOfOutput() {
    MPPFormatReader root(FileURL::fileURLWithPath(outputPath(), false));
    root.open();
    std::vector<Storage> storages;
    for (std::int32_t i = 0; i < root.numberOfChildren(); ++i) {
        const auto storage = root.createReaderForChildAtIndex(i);
        auto& [name, streams] = storages.emplace_back(storage->getName(), std::vector<Stream>());
        for (std::int32_t j = 0; j < storage->numberOfChildren(); ++j) {
            const auto stream = storage->createReaderForChildAtIndex(j);
            streams.emplace_back(stream->getName(), stream->readAll().value());
        }
    }
    return storages;
}

void writeThroughLibrary(const std::vector<Storage>& storages) {
    GsfOutput* sink = gsf_output_stdio_new(outputPath().c_str(), nullptr);
    GsfOutfile* root = gsf_outfile_msole_new(sink);
    for (const auto& [storageName, streams] : storages) {
        GsfOutput* storage = gsf_outfile_new_child(root, storageName.c_str(), TRUE);
        for (const auto& [streamName, bytes] : streams) {
            GsfOutput* stream =
                gsf_outfile_new_child(reinterpret_cast<GsfOutfile*>(storage), streamName.c_str(), FALSE);
            gsf_output_write(stream, bytes.size(), bytes.data());
            gsf_output_close(stream);
            g_object_unref(stream);
        }
        gsf_output_close(storage);
        g_object_unref(storage);
    }
    gsf_output_close(reinterpret_cast<GsfOutput*>(root));
    g_object_unref(root);
    g_object_unref(sink);
}

std::size_t bytesOf(const std::vector<Storage>& storages) {
    std::size_t bytes = 0;
    for (const auto& [storageName, streams] : storages)
        for (const auto& [streamName, data] : streams)
            bytes += data.size();
    return bytes;
}

// Peak memory of the process since the last reset, in MB; 0 where the system does not tell.
void resetPeakMemory() { std::ofstream("/proc/self/clear_refs") << "5"; }
double peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::stod(line.substr(6)) / 1024;
    return 0;
}

// The quickest of several runs: by the clock, and by the processor's time, which a busy machine disturbs less.
struct Quickest {
    double wall = std::numeric_limits<double>::max();
    double processor = wall;

    template <typename Action>
    double run(Action action) {
        const auto begin = std::chrono::steady_clock::now();
        const std::clock_t processorBegin = std::clock();
        action();
        const double time = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        wall = std::min(wall, time);
        processor = std::min(processor, static_cast<double>(std::clock() - processorBegin) / CLOCKS_PER_SEC);
        return time;
    }
};

// Both ways by turns, so that both meet the same disk.
void againstTheLibrary(benchmark::State& state) {
    const auto project = projectOfSize(static_cast<std::size_t>(state.range(0)));
    resetPeakMemory();
    const double before = peakMemory();
    writeThroughWriters(*project);
    state.counters["MB above the model"] = peakMemory() - before;

    const std::vector<Storage> storages = storagesOfOutput();
    Quickest writers;
    Quickest library;
    for ([[maybe_unused]] auto iteration : state) {
        state.SetIterationTime(writers.run([&] { writeThroughWriters(*project); }));
        library.run([&] { writeThroughLibrary(storages); });
    }
    state.counters["MB written"] = static_cast<double>(bytesOf(storages)) / 1e6;
    state.counters["library ms"] = library.wall * 1e3;
    state.counters["ratio"] = writers.wall / library.wall;
    state.counters["processor ratio"] = writers.processor / library.processor;
}

BENCHMARK(againstTheLibrary)
    ->Arg(100)
    ->Arg(10000)
    ->Arg(100000)
    ->Arg(200000)
    ->Iterations(9)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brackwater

int main(int argc, char** argv) {
    const brackwater::SilentLog silent;
    gsf_init();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::filesystem::remove(brackwater::outputPath());
    gsf_shutdown();
    return 0;
}
