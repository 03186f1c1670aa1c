#pragma once

#include "GanttOptions.h"
#include "WorkingDays.h"

namespace brackwater::inspect {

/// The time axis of a chart: days to pixels, and what stands above it.
class TimeScale {
public:
    /// Spans all dates of the tasks with some room at both ends, or what the options say. The dates of the project's
    /// own row do not count.
    TimeScale(const std::vector<Task>& tasks, const GanttOptions& options);

    [[nodiscard]] double width() const noexcept { return _width; }
    [[nodiscard]] DaySpan days() const noexcept { return _days; }
    [[nodiscard]] double pixelsPerDay() const noexcept { return _pixelsPerDay; }
    [[nodiscard]] double x(const Date& date) const;
    [[nodiscard]] double dayX(int day) const { return (day - _days.first) * _pixelsPerDay; }

    struct Cell {
        double left = 0, width = 0;
        std::string label; ///< empty where it would not fit
    };
    /// The two lines of the axis: months above days or weeks, or years above months, quarters or nothing.
    [[nodiscard]] std::vector<Cell> upperCells() const;
    [[nodiscard]] std::vector<Cell> lowerCells() const;

private:
    using Step = ScaleStep;
    [[nodiscard]] std::vector<Cell> cells(Step step) const;
    [[nodiscard]] Step lowerStep() const;

    std::optional<Step> _step; ///< the wanted one
    DaySpan _days;
    double _width = 0, _pixelsPerDay = 0;
};

} // namespace brackwater::inspect
