#include "TimeScale.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>

namespace brackwater::inspect {

namespace {

using namespace std::chrono;

constexpr sys_days kDayZero = year(1983) / 12 / 31;
constexpr double kTenthsPerDay = 14'400;
constexpr int kLeastDays = 28;                   ///< the axis of a short plan runs on behind its end
constexpr double kScreen = 800;                  ///< a plan of this width needs no scrolling beside its table
constexpr double kLeastWidth = 680;              ///< narrower charts are scrolled
constexpr double kMostWidth = 100'000;           ///< in pixels: wider ones are slow in browsers
constexpr double kCharacter = 6.8, kPadding = 4; ///< of a label, at the most

constexpr std::array kSteps{ScaleStep::Days,     ScaleStep::Weeks, ScaleStep::Months,
                            ScaleStep::Quarters, ScaleStep::Years, ScaleStep::Decades};

year_month_day dateOf(int day) { return {kDayZero + days(day)}; }
int dayOf(const year_month_day& date) { return static_cast<int>((sys_days(date) - kDayZero).count()); }

std::string_view monthName(const year_month_day& date) {
    constexpr std::array<std::string_view, 12> names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return names.at(static_cast<unsigned>(date.month()) - 1);
}

/// Pixels a day that make the labels of a step readable.
double leastPerDay(ScaleStep step) {
    switch (step) {
    case ScaleStep::Days:
        return 18;
    case ScaleStep::Weeks:
        return 20 / 7.0;
    case ScaleStep::Months:
        return 30 / 30.0;
    case ScaleStep::Quarters:
        return 26 / 91.0;
    case ScaleStep::Years:
        return 36 / 365.0;
    case ScaleStep::Decades:
        return 42 / 3652.0;
    }
    return 0;
}

ScaleStep finest(double pixelsPerDay, ScaleStep from) {
    return *std::ranges::find_if(std::ranges::find(kSteps, from), kSteps.end(), [&](ScaleStep step) {
        return leastPerDay(step) <= pixelsPerDay || step == ScaleStep::Decades;
    });
}

ScaleStep above(ScaleStep step) {
    switch (step) {
    case ScaleStep::Days:
    case ScaleStep::Weeks:
        return ScaleStep::Months;
    case ScaleStep::Months:
    case ScaleStep::Quarters:
        return ScaleStep::Years;
    default:
        return ScaleStep::Decades;
    }
}

/// The first day of the step that the day lies in.
int startOf(ScaleStep step, int day) {
    const year_month_day date = dateOf(day);
    const unsigned month = static_cast<unsigned>(date.month());
    switch (step) {
    case ScaleStep::Days:
        return day;
    case ScaleStep::Weeks:
        return day - ((day + 5) % 7 + 7) % 7; // the Monday before
    case ScaleStep::Months:
        return dayOf(date.year() / date.month() / 1);
    case ScaleStep::Quarters:
        return dayOf(date.year() / std::chrono::month((month - 1) / 3 * 3 + 1) / 1);
    case ScaleStep::Years:
        return dayOf(date.year() / 1 / 1);
    case ScaleStep::Decades:
        return dayOf(year(static_cast<int>(date.year()) / 10 * 10) / 1 / 1);
    }
    return day;
}

/// The first day of the step behind the one that begins at `start`.
int nextOf(ScaleStep step, int start) {
    const year_month_day date = dateOf(start);
    switch (step) {
    case ScaleStep::Days:
        return start + 1;
    case ScaleStep::Weeks:
        return start + 7;
    case ScaleStep::Months:
        return dayOf((date.year() / date.month() + months(1)) / 1);
    case ScaleStep::Quarters:
        return dayOf((date.year() / date.month() + months(3)) / 1);
    case ScaleStep::Years:
        return dayOf((date.year() + years(1)) / 1 / 1);
    case ScaleStep::Decades:
        return dayOf((date.year() + years(10)) / 1 / 1);
    }
    return start + 1;
}

} // namespace

TimeScale::TimeScale(const std::vector<Task>& tasks, const GanttOptions& options) {
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
    _days.last = options.to ? *options.to : std::max(last.value_or(0) + room, _days.first + kLeastDays - 1);
    _days.last = std::max(_days.last, _days.first);
    const double count = _days.last - _days.first + 1;
    _step = options.scale ? finest(kMostWidth / count, *options.scale) : finest(kScreen / count, ScaleStep::Days);
    _width = std::max(leastPerDay(_step) * count, kLeastWidth);
}

double TimeScale::at(const Date& date) const {
    return (date.days - _days.first + date.tenths / kTenthsPerDay) * 100 / (_days.last - _days.first + 1);
}

double TimeScale::atDay(int day) const { return 100.0 * (day - _days.first) / (_days.last - _days.first + 1); }

TimeScale::Axis TimeScale::axis(double width) const {
    const ScaleStep step = finest(width / (_days.last - _days.first + 1), _step);
    return {cells(above(step), width), cells(step, width)};
}

std::vector<TimeScale::Cell> TimeScale::cells(ScaleStep step, double width) const {
    std::vector<Cell> cells;
    for (int start = startOf(step, _days.first); start <= _days.last; start = nextOf(step, start)) {
        const double left = std::max(atDay(start), 0.0), right = std::min(atDay(nextOf(step, start)), 100.0);
        cells.push_back({left, right, labelOf(step, start, (right - left) * width / 100)});
    }
    return cells;
}

std::string TimeScale::labelOf(ScaleStep step, int start, double width) const {
    const auto fitting = [width](const std::string& label) {
        const bool fits = static_cast<double>(label.size()) * kCharacter + kPadding <= width;
        return fits ? label : std::string();
    };
    const year_month_day date = dateOf(start);
    const int yearNumber = static_cast<int>(date.year());
    switch (step) {
    case ScaleStep::Days:
    case ScaleStep::Weeks:
        return fitting(fmt::format("{}", static_cast<unsigned>(date.day())));
    case ScaleStep::Months: {
        const std::string month(monthName(date)), whole = fmt::format("{} {}", month, yearNumber);
        const bool isUpper = _step == ScaleStep::Days || _step == ScaleStep::Weeks;
        return isUpper && !fitting(whole).empty() ? whole : fitting(month);
    }
    case ScaleStep::Quarters:
        return fitting(fmt::format("Q{}", (static_cast<unsigned>(date.month()) + 2) / 3));
    case ScaleStep::Years:
        return fitting(fmt::format("{}", yearNumber));
    case ScaleStep::Decades:
        return fitting(fmt::format("{}s", yearNumber));
    }
    return {};
}

} // namespace brackwater::inspect
