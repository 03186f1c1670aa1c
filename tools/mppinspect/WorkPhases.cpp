#include "WorkPhases.h"

#include <fmt/format.h>

#include <cmath>

namespace brackwater::inspect {

namespace {

/// How a block is laid out: a head, then entries that each tell how much work and time have gone by at their end.
struct Layout {
    std::size_t entriesAt, entrySize, timeAt; ///< the time within an entry
    double unitsScale;                        ///< what units are multiplied by
};

constexpr Layout kRemaining{.entriesAt = 44, .entrySize = 28, .timeAt = 24, .unitsScale = 16};
constexpr Layout kComplete{.entriesAt = 36, .entrySize = 20, .timeAt = 16, .unitsScale = 1};
constexpr std::size_t kUnitsAt = 8, kWorkAt = 16, kTimeAt = 24, kContourAt = 28;
constexpr std::int64_t kPerTenth = 8; ///< times count in eightieths of a minute

std::vector<WorkPhase> phasesOf(ByteView block, const Layout& layout, const std::string& assignment,
                                Complaints& complaints) {
    const auto complain = [&](std::string_view what) { complaints.add("TBkndAssn/Var2Data", what, assignment); };
    std::vector<WorkPhase> phases;
    const std::size_t counted = block.u16(0).value_or(0);
    double work = 0;
    std::int64_t time = 0;
    for (std::size_t i = 0; i < counted; ++i) {
        const ByteView entry = block.part(layout.entriesAt + i * layout.entrySize, layout.entrySize);
        if (entry.size() < layout.entrySize) {
            complain("a block of work over time is cut off");
            break;
        }
        const double workThen = *entry.f64(0);
        const std::int64_t timeThen = *entry.i32(layout.timeAt);
        if (!std::isfinite(workThen) || timeThen < time) {
            complain("a block of work over time goes back in time, or tells no number");
            break;
        }
        phases.push_back({.work = workThen - work,
                          .tenths = (timeThen / kPerTenth) - (time / kPerTenth),
                          .units = *entry.f64(8) / layout.unitsScale});
        work = workThen;
        time = timeThen;
    }
    return phases;
}

// Even work has no entries: the head tells it all.
std::vector<WorkPhase> evenPhase(ByteView block, const Layout& layout) {
    const auto work = block.f64(kWorkAt);
    const auto time = block.i32(kTimeAt);
    if (!work || !time || *time <= 0 || !std::isfinite(*work))
        return {};
    return {{.work = *work, .tenths = *time / kPerTenth, .units = *block.f64(kUnitsAt) / layout.unitsScale}};
}

} // namespace

PhaseBlock remainingWork(ByteView block, const std::string& assignment, Complaints& complaints) {
    PhaseBlock read{phasesOf(block, kRemaining, assignment, complaints), block.u16(kContourAt).value_or(0)};
    if (block.u16(0).value_or(0) == 0)
        read.phases = evenPhase(block, kRemaining);
    return read;
}

PhaseBlock completeWork(ByteView block, const std::string& assignment, Complaints& complaints) {
    PhaseBlock read{phasesOf(block, kComplete, assignment, complaints), 0};
    if (block.u16(0).value_or(0) == 0)
        read.phases = evenPhase(block, kComplete);
    return read;
}

} // namespace brackwater::inspect
