// The road of a date through an export: source text to instant, and instant through both text forms back to an instant.
// Each is to cost 1 microsecond at most, and at most three times one computation of an icu::Calendar's fields, which is
// measured in the same run; nothing is to be allocated but the texts that are handed out.

#include "Platform/Time/GregorianCalendar.h"
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

/// As many as the benchmark's argument tells, minutes apart; a million cover twenty years.
std::vector<Date> datesFor(const benchmark::State& state) {
    std::vector<Date> made;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        made.push_back({1'000'000'000.0 + static_cast<double>(i) * 629.0});
    return made;
}

std::vector<std::string> sourceTextsFor(const benchmark::State& state) {
    std::vector<std::string> made;
    for (const Date date : datesFor(state))
        made.push_back(MSPIUtilities::mppToZelbDateTime(date).value());
    return made;
}

/// Reports what one date costs, in time and in allocations.
class PerDate {
public:
    explicit PerDate(benchmark::State& state) : _state(state), _before(allocations) {}
    ~PerDate() {
        const auto count = static_cast<double>(_state.iterations()) * static_cast<double>(_state.range(0));
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
    const std::vector<Date> dates = datesFor(state);
    const PerDate perDate(state);
    for (auto _ : state) {
        for (const Date date : dates) {
            calendar.setTime(date.secondsSince1970 * 1000.0, status);
            benchmark::DoNotOptimize(calendar.get(UCAL_SECOND, status));
        }
    }
}

void sourceTextToInstant(benchmark::State& state) {
    const std::vector<std::string> texts = sourceTextsFor(state);
    const PerDate perDate(state);
    for (auto _ : state)
        for (const std::string& text : texts)
            benchmark::DoNotOptimize(MSPIUtilities::zelbToMppDateTime(text));
}

void instantThroughBothTextsToInstant(benchmark::State& state) {
    const std::vector<Date> dates = datesFor(state);
    const PerDate perDate(state);
    for (auto _ : state) {
        for (const Date date : dates) {
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

constexpr std::int64_t kFew = 1'000;
constexpr std::int64_t kMany = 1'000'000;

BENCHMARK(icuCalendarFields)->Arg(kFew)->Arg(kMany)->Unit(benchmark::kMillisecond);
BENCHMARK(sourceTextToInstant)->Arg(kFew)->Arg(kMany)->Unit(benchmark::kMillisecond);
BENCHMARK(instantThroughBothTextsToInstant)->Arg(kFew)->Arg(kMany)->Unit(benchmark::kMillisecond);
BENCHMARK(systemZone);

} // namespace
} // namespace brackwater

int main(int argc, char** argv) {
    setenv("TZ", "Europe/Berlin", 1);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
