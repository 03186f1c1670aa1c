#include "TimeScale.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>

namespace brackwater::inspect {

namespace {

using namespace std::chrono;

constexpr sys_days kDayZero = year(1983) / 12 / 31;
constexpr double kTenthsPerDay = 14'400, kNarrowest = 900, kWidest = 1500, kLeastPerDay = 1.5, kMostPerDay = 24;
constexpr double kMost = 200'000;                ///< pixels that browsers still lay out well
constexpr double kCharacter = 6.8, kPadding = 3; ///< of a label, at the most

year_month_day dateOf(int day) { return {kDayZero + days(day)}; }
int dayOf(const year_month_day& date) { return static_cast<int>((sys_days(date) - kDayZero).count()); }

/// Pixels that make a label of the step readable.
double leastPerDay(ScaleStep step) {
    switch (step) {
    case ScaleStep::Days:
        return 15;
    case ScaleStep::Weeks:
        return 13 / 7.0;
    case ScaleStep::Months:
        return 26 / 30.0;
    case ScaleStep::Quarters:
        return 20 / 91.0;
    case ScaleStep::Years:
        return 30 / 365.0;
    case ScaleStep::Decades:
        return 0;
    }
    return 0;
}

std::string_view monthName(const year_month_day& date) {
    constexpr std::array<std::string_view, 12> names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return names.at(static_cast<unsigned>(date.month()) - 1);
}

} // namespace

TimeScale::TimeScale(const std::vector<Task>& tasks, const GanttOptions& options) : _step(options.scale) {
    std::optional<int> first, last;
    const auto include = [&](const std::optional<Date>& date) {
        if (!date)
            return;
        first = std::min<int>(first.value_or(date->days), date->days);
        last = std::max<int>(last.value_or(date->days), date->days);
    };
    for (const Task& task : tasks) {
        if (task.uniqueId == 0)
            continue;
        include(task.start);
        include(task.finish);
        if (const auto baseline = task.baselines.find(0); baseline != task.baselines.end()) {
            include(baseline->second.start);
            include(baseline->second.finish);
        }
    }
    const int span = last.value_or(0) - first.value_or(0) + 1, room = 2 + span / 50;
    _days.first = options.from ? *options.from : first.value_or(0) - room;
    _days.last = std::max<int>(options.to ? *options.to : last.value_or(0) + room, _days.first);
    const double count = _days.last - _days.first + 1;
    const double wanted = options.scale ? leastPerDay(*options.scale) * count : 0;
    _width = wanted > 0 ? std::clamp(wanted, kNarrowest, kMost) : std::clamp(count * kLeastPerDay, kNarrowest, kWidest);
    // A short plan keeps days of a sensible width: the axis runs on behind its end.
    _pixelsPerDay = std::min(_width / count, kMostPerDay);
    _days.last = _days.first + static_cast<int>(_width / _pixelsPerDay) - 1;
    if (wanted > kMost)
        _step.reset();
}

double TimeScale::x(const Date& date) const {
    return (date.days - _days.first + date.tenths / kTenthsPerDay) * _pixelsPerDay;
}

ScaleStep TimeScale::lowerStep() const {
    if (_step)
        return *_step;
    for (const Step step : {Step::Days, Step::Weeks, Step::Months, Step::Quarters, Step::Years})
        if (_pixelsPerDay >= leastPerDay(step))
            return step;
    return Step::Decades;
}

std::vector<TimeScale::Cell> TimeScale::lowerCells() const { return cells(lowerStep()); }

std::vector<TimeScale::Cell> TimeScale::upperCells() const {
    switch (lowerStep()) {
    case Step::Days:
    case Step::Weeks:
        return cells(Step::Months);
    case Step::Months:
    case Step::Quarters:
        return cells(Step::Years);
    default:
        return cells(Step::Decades);
    }
}

std::vector<TimeScale::Cell> TimeScale::cells(Step step) const {
    const auto startOf = [step](int day) {
        const year_month_day date = dateOf(day);
        const unsigned month = static_cast<unsigned>(date.month());
        switch (step) {
        case Step::Days:
            return day;
        case Step::Weeks:
            return day - ((day + 5) % 7 + 7) % 7; // the Monday before
        case Step::Months:
            return dayOf(date.year() / date.month() / 1);
        case Step::Quarters:
            return dayOf(date.year() / std::chrono::month((month - 1) / 3 * 3 + 1) / 1);
        case Step::Years:
            return dayOf(date.year() / 1 / 1);
        case Step::Decades:
            return dayOf(year(static_cast<int>(date.year()) / 10 * 10) / 1 / 1);
        }
        return day;
    };
    const auto lengthOf = [step](int start) {
        const year_month_day date = dateOf(start);
        switch (step) {
        case Step::Days:
            return 1;
        case Step::Weeks:
            return 7;
        case Step::Months:
            return dayOf((date.year() / date.month() + months(1)) / 1) - start;
        case Step::Quarters:
            return dayOf((date.year() / date.month() + months(3)) / 1) - start;
        case Step::Years:
            return dayOf((date.year() + years(1)) / 1 / 1) - start;
        case Step::Decades:
            return dayOf((date.year() + years(10)) / 1 / 1) - start;
        }
        return 1;
    };
    const bool belowYears = lowerStep() == Step::Months;
    const auto labelOf = [step, belowYears](int start) -> std::string {
        const year_month_day date = dateOf(start);
        const int yearNumber = static_cast<int>(date.year());
        switch (step) {
        case Step::Days:
        case Step::Weeks:
            return fmt::format("{}", static_cast<unsigned>(date.day()));
        case Step::Months:
            return belowYears ? std::string(monthName(date)) : fmt::format("{} {}", monthName(date), yearNumber);
        case Step::Quarters:
            return fmt::format("Q{}", (static_cast<unsigned>(date.month()) + 2) / 3);
        case Step::Years:
            return fmt::format("{}", yearNumber);
        case Step::Decades:
            return fmt::format("{}s", yearNumber);
        }
        return {};
    };
    std::vector<Cell> cells;
    for (int start = startOf(_days.first); start <= _days.last; start += lengthOf(start)) {
        const double left = std::max(dayX(start), 0.0), right = std::min(dayX(start + lengthOf(start)), _width);
        Cell cell{left, right - left, labelOf(start)};
        const auto fits = [&cell] {
            return static_cast<double>(cell.label.size()) * kCharacter + kPadding <= cell.width;
        };
        if (step == Step::Months && !fits())
            cell.label = monthName(dateOf(start));
        if (!fits())
            cell.label.clear();
        cells.push_back(std::move(cell));
    }
    return cells;
}

} // namespace brackwater::inspect
