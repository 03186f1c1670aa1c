#pragma once

#include "ProjectFile.h"

namespace brackwater::inspect {

// Measures of a line of the chart, in pixels. Bars and diamonds are centred on kMiddle.
inline constexpr int kRowHeight = 22, kHeadHeight = 40;
inline constexpr int kBarTop = 4, kBarHeight = 10, kMiddle = 9, kDiamond = 6, kSummaryTop = 5, kSummaryHeight = 5;
inline constexpr int kBaselineTop = 16, kBaselineHeight = 3;

/// A line of the chart.
struct GanttRow {
    const Task* task = nullptr;
    bool isSummary = false, isCritical = false;

    [[nodiscard]] bool isDiamond() const { return task->milestone && !isSummary; }
    [[nodiscard]] const std::optional<Date>& start() const { return task->start ? task->start : task->finish; }
    [[nodiscard]] const std::optional<Date>& finish() const { return task->finish ? task->finish : task->start; }
};

/// A link between two lines of the chart, by their positions.
struct GanttLink {
    std::size_t from = 0, to = 0;
    std::uint16_t type = 0;
};

} // namespace brackwater::inspect
