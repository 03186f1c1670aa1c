// The encodings that a stream of many rows spends its time in.

#include "MPPXMLDOMFilter/Buffers/MPP12VarMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace brackwater {
namespace {

constexpr std::uint64_t kRows = 100000;

void countRows(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kRows));
}

/// Rows of 256 bytes, four at a time an integer, as a row of a task has them.
void fixedRows(benchmark::State& state) {
    for (auto _ : state) {
        const auto rows = std::make_shared<MPPFixedData>();
        for (std::uint64_t row = 0; row < kRows; ++row) {
            rows->startNewElement();
            for (std::uint32_t field = 0; field < 64; ++field)
                rows->writeInteger(field);
            rows->closeCurrentElement();
            rows->clearBuffer();
        }
        MPPFixedMeta meta(rows);
        meta.writeMetaHeader();
        for (std::uint64_t row = 0; row < kRows; ++row)
            meta.writeNextElementStartWithInt(0);
        benchmark::DoNotOptimize(meta.data().data());
    }
    countRows(state);
}

/// Ten texts a row, and an index of them by type and id.
void var2Elements(benchmark::State& state) {
    const std::string title = "Lay the foundation of house 12";
    for (auto _ : state) {
        const auto var2 = std::make_shared<MPPVar2Data>();
        for (std::uint64_t row = 0; row < kRows; ++row) {
            for (std::uint64_t type = 1; type <= 10; ++type) {
                var2->startNewElementWithType(type, row);
                var2->writeString(title, MPPEncoding::Unicode);
                var2->closeCurrentElement();
                var2->clearBuffer();
            }
        }
        MPP12VarMeta meta(var2, 0);
        meta.writeMetaHeader();
        for (std::uint64_t row = 0; row < kRows; ++row)
            for (std::uint64_t type = 1; type <= 10; ++type)
                meta.writeElementMetaWithType(type, row);
        benchmark::DoNotOptimize(meta.data().data());
    }
    countRows(state);
}

void unicodeTexts(benchmark::State& state, const std::string& text) {
    MPPData data;
    for (auto _ : state) {
        data.writeString(text, MPPEncoding::Unicode);
        benchmark::DoNotOptimize(data.data().data());
        data.clearBuffer();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void dates(benchmark::State& state) {
    MPPData data;
    double second = 1.7e9;
    for (auto _ : state) {
        data.writeDate(Date{second});
        second += 1800.0;
        if (data.dataSize() > 4096)
            data.clearBuffer();
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(fixedRows)->Unit(benchmark::kMillisecond);
BENCHMARK(var2Elements)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(unicodeTexts, title, std::string("Lay the foundation of house 12"));
BENCHMARK_CAPTURE(unicodeTexts, note, std::string(4000, 'n'));
BENCHMARK_CAPTURE(unicodeTexts, cyrillic, std::string("\u0417\u0430\u043B\u0438\u0442\u044C \u0444\u0443\u043D\u0434"));
BENCHMARK(dates);

} // namespace
} // namespace brackwater

BENCHMARK_MAIN();
