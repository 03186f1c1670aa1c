#pragma once

#include "TimeScale.h"

namespace brackwater::inspect {

/// A line of the chart.
struct GanttRow {
    const Task* task = nullptr;
    bool isSummary = false;
};

/// A link between two lines of the chart, by their positions.
struct GanttLink {
    std::size_t from = 0, to = 0;
    std::uint16_t type = 0;
};

/// Draws the lines of a chart with a y of 0 at the first of them; each line is kRowHeight high.
class GanttChart {
public:
    GanttChart(const TimeScale& scale, std::span<const GanttRow> rows, std::optional<std::uint16_t> today)
        : _scale(scale), _rows(rows), _today(today) {}

    /// Free days, grid and axis of the whole chart as definitions that the drawings refer to, "free", "axis".
    void appendDefinitions(std::string& out, const std::vector<DaySpan>& freeDays) const;
    /// Baseline, bar and progress of the line at the position, drawn in a part of the chart that begins at `first`.
    void appendRow(std::string& out, std::size_t position, std::size_t first) const;
    /// A link, drawn in a part of the chart that begins at `first`. Nothing without dates at both ends.
    void appendLink(std::string& out, const GanttLink& link, std::size_t first) const;

private:
    void appendBar(std::string& out, const Task& task, double left, double right, double top) const;
    void appendBaseline(std::string& out, const Task& task, double top) const;
    /// Where links leave or reach the line; nothing without a date there.
    [[nodiscard]] std::optional<double> end(const GanttRow& row, bool atFinish) const;

    const TimeScale& _scale;
    std::span<const GanttRow> _rows;
    std::optional<std::uint16_t> _today;
};

} // namespace brackwater::inspect
