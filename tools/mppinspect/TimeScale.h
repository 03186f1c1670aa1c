#pragma once

#include "GanttOptions.h"
#include "WorkingDays.h"

namespace brackwater::inspect {

/// The time axis of a chart. Places on it are shares of the chart's width in per cent, so that a chart fits any screen
/// and any paper; places outside of the axis are below 0 or above 100.
class TimeScale {
public:
    /// Spans the dates of the tasks with some room at both ends, or what the options say. The project's own row does
    /// not count.
    TimeScale(const std::vector<Task>& tasks, const GanttOptions& options);

    /// The least width in pixels at which the labels are readable.
    [[nodiscard]] double width() const noexcept { return _width; }
    [[nodiscard]] DaySpan days() const noexcept { return _days; }
    [[nodiscard]] double at(const Date& date) const;
    [[nodiscard]] double atDay(int day) const;

    struct Cell {
        double left = 0, right = 0;
        std::string label; ///< empty where it would not fit
    };
    /// The two lines of an axis: months above days or weeks, years above months or quarters, decades above years.
    struct Axis {
        std::vector<Cell> upper, lower;
    };
    /// For a chart of this width in pixels.
    [[nodiscard]] Axis axis(double width) const;

private:
    [[nodiscard]] std::vector<Cell> cells(ScaleStep step, double width) const;
    [[nodiscard]] std::string labelOf(ScaleStep step, int start, double width) const;

    ScaleStep _step = ScaleStep::Days; ///< the finest
    DaySpan _days;
    double _width = 0;
};

} // namespace brackwater::inspect
