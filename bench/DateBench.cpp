// The road of a date through an export: source text to instant, and instant through both text forms back to an instant.
// Each is to cost 1 microsecond at most, and at most three times one computation of an icu::Calendar's fields, which is
// measured in the same run; nothing is to be allocated but the texts that are handed out.

#include "Platform/GregorianCalendar.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <benchmark/benchmark.h>
#include <unicode/gregocal.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace {

std::atomic<std::int64_t> allocations{0};

} // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace brackwater {
namespace {

constexpr std::size_t kDates = 1'000'000;

/// Minutes apart, over twenty years.
const std::vector<Date>& dates() {
    static const std::vector<Date> all = [] {
        std::vector<Date> made;
        for (std::size_t i = 0; i < kDates; ++i)
            made.push_back({1'000'000'000.0 + static_cast<double>(i) * 629.0});
        return made;
    }();
    return all;
}

const std::vector<std::string>& sourceTexts() {
    static const std::vector<std::string> all = [] {
        std::vector<std::string> made;
        for (const Date date : dates())
            made.push_back(MSPIUtilities::mppToZelbDateTime(date).value());
        return made;
    }();
    return all;
}

/// Reports what one date costs, in time and in allocations.
class PerDate {
public:
    explicit PerDate(benchmark::State& state) : _state(state), _before(allocations) {}
    ~PerDate() {
        const auto count = static_cast<double>(_state.iterations()) * static_cast<double>(kDates);
        _state.counters["allocations"] = static_cast<double>(allocations - _before) / count;
        _state.counters["time"] = benchmark::Counter(count, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    }
    PerDate(const PerDate&) = delete;
    PerDate& operator=(const PerDate&) = delete;

private:
    benchmark::State& _state;
    std::int64_t _before;
};

void icuCalendarFields(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    icu::GregorianCalendar calendar(icu::TimeZone::createTimeZone("Europe/Berlin"), status);
    std::ignore = dates();
    const PerDate perDate(state);
    for (auto _ : state) {
        for (const Date date : dates()) {
            calendar.setTime(date.secondsSince1970 * 1000.0, status);
            benchmark::DoNotOptimize(calendar.get(UCAL_SECOND, status));
        }
    }
}

void sourceTextToInstant(benchmark::State& state) {
    std::ignore = sourceTexts();
    const PerDate perDate(state);
    for (auto _ : state)
        for (const std::string& text : sourceTexts())
            benchmark::DoNotOptimize(MSPIUtilities::zelbToMppDateTime(text));
}

void instantThroughBothTextsToInstant(benchmark::State& state) {
    std::ignore = dates();
    const PerDate perDate(state);
    for (auto _ : state) {
        for (const Date date : dates()) {
            const auto source = MSPIUtilities::mppToZelbDateTime(date);
            const auto text = MSPIUtilities::zelbToMspdiDateTime(*source);
            benchmark::DoNotOptimize(MSPIUtilities::mspdiToMppDateTime(*text));
        }
    }
}

void systemZone(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(TimeZone::system());
}

BENCHMARK(icuCalendarFields)->Unit(benchmark::kMillisecond);
BENCHMARK(sourceTextToInstant)->Unit(benchmark::kMillisecond);
BENCHMARK(instantThroughBothTextsToInstant)->Unit(benchmark::kMillisecond);
BENCHMARK(systemZone);

} // namespace
} // namespace brackwater

int main(int argc, char** argv) {
    setenv("TZ", "Europe/Berlin", 1);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
