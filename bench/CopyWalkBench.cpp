// The copying walk over a template of one large stream, against reading and writing the same file with the
// compound-file library alone. Both run in turn in one process, so that their ratio holds on any machine: it is to
// be 1.2 at most, and the walk is to hold the stream twice at most.

#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"
#include "support/CompoundFile.h"
#include "support/LogCapture.h"
#include "support/TempFolder.h"

#include <benchmark/benchmark.h>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input-stdio.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-stdio.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <string>
#include <unistd.h>

namespace brackwater::test {
namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Unref>;

/// Every stream of the root read whole and written in one call.
void copyWithLibraryAlone(const std::string& from, const std::string& to) {
    const Owned<GsfInput> file(gsf_input_stdio_new(from.c_str(), nullptr));
    const Owned<GsfInfile> input(gsf_infile_msole_new(file.get(), nullptr));
    const Owned<GsfOutput> sink(gsf_output_stdio_new(to.c_str(), nullptr));
    const Owned<GsfOutfile> output(gsf_outfile_msole_new(sink.get()));
    for (int i = 0; i < gsf_infile_num_children(input.get()); ++i) {
        const Owned<GsfInput> stream(gsf_infile_child_by_index(input.get(), i));
        const auto size = static_cast<std::size_t>(gsf_input_size(stream.get()));
        const std::unique_ptr<guint8[]> bytes(new guint8[size]);
        gsf_input_read(stream.get(), size, bytes.get());
        const Owned<GsfOutput> copy(gsf_outfile_new_child(output.get(), gsf_input_name(stream.get()), FALSE));
        gsf_output_write(copy.get(), size, bytes.get());
        gsf_output_close(copy.get());
    }
    gsf_output_close(reinterpret_cast<GsfOutput*>(output.get()));
}

/// A figure of the process in bytes, such as "VmRSS:".
double processMemory(const std::string& figure) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        double kilobytes = 0.0;
        if (word == figure && status >> kilobytes)
            return kilobytes * 1024.0;
    }
    return 0.0;
}

void forgetPeakMemory() { std::ofstream("/proc/self/clear_refs") << "5"; }

template <typename Action>
double secondsOf(Action action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void copyWalk(benchmark::State& state) {
    const CompoundFileLibrary library;
    const LogCapture log;
    const TempFolder folder;
    const std::string source = folder.path("Template.mpp");
    const std::size_t streamSize = static_cast<std::size_t>(state.range(0)) * kMegabyte;
    writeCompoundFile(source, {compObj2007(), stream("Large", patternBytes(streamSize))});

    const auto walk = [&] {
        std::filesystem::remove(folder.path("Walk.mpp"));
        if (!MPPProjectWriter::writeProject(nullptr, FileURL::fileURLWithPath(folder.path("Walk.mpp"), false),
                                            FileURL::fileURLWithPath(source, false)))
            state.SkipWithError("the walk failed");
    };
    double libraryBest = std::numeric_limits<double>::infinity();
    double walkBest = std::numeric_limits<double>::infinity();
    double peak = 0.0;
    for (auto _ : state) {
        libraryBest =
            std::min(libraryBest, secondsOf([&] { copyWithLibraryAlone(source, folder.path("Library.mpp")); }));
        forgetPeakMemory();
        const double before = processMemory("VmRSS:");
        const double seconds = secondsOf(walk);
        peak = std::max(peak, processMemory("VmHWM:") - before);
        walkBest = std::min(walkBest, seconds);
        state.SetIterationTime(seconds);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(streamSize));
    state.counters["libraryAloneMs"] = libraryBest * 1000.0;
    state.counters["walkMs"] = walkBest * 1000.0;
    state.counters["ratio"] = walkBest / libraryBest;
    state.counters["streamsInMemory"] = peak / static_cast<double>(streamSize);
}

BENCHMARK(copyWalk)
    ->ArgName("megabytes")
    ->Arg(1)
    ->Arg(64)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(15);

} // namespace
} // namespace brackwater::test

BENCHMARK_MAIN();
