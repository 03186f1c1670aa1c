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
constexpr double kCharacter = 6.8, kPadding = 3; ///< of a label, at the most

year_month_day dateOf(int day) { return {kDayZero + days(day)}; }
int dayOf(const year_month_day& date) { return static_cast<int>((sys_days(date) - kDayZero).count()); }

std::string_view monthName(const year_month_day& date) {
    constexpr std::array<std::string_view, 12> names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return names.at(static_cast<unsigned>(date.month()) - 1);
}

} // namespace

TimeScale::TimeScale(const std::vector<Task>& tasks) {
    std::optional<int> first, last;
    const auto include = [&](const std::optional<Date>& date) {
        if (!date)
            return;
        first = std::min<int>(first.value_or(date->days), date->days);
        last = std::max<int>(last.value_or(date->days), date->days);
    };
    for (const Task& task : tasks) {
        include(task.start);
        include(task.finish);
        if (const auto baseline = task.baselines.find(0); baseline != task.baselines.end()) {
            include(baseline->second.start);
            include(baseline->second.finish);
        }
    }
    const int span = last.value_or(0) - first.value_or(0) + 1, room = 2 + span / 50;
    _days = {first.value_or(0) - room, last.value_or(0) + room};
    const double count = _days.last - _days.first + 1;
    _width = std::clamp(count * kLeastPerDay, kNarrowest, kWidest);
    // A short plan keeps days of a sensible width: the axis runs on behind its end.
    _pixelsPerDay = std::min(_width / count, kMostPerDay);
    _days.last = _days.first + static_cast<int>(_width / _pixelsPerDay) - 1;
}

double TimeScale::x(const Date& date) const {
    return (date.days - _days.first + date.tenths / kTenthsPerDay) * _pixelsPerDay;
}

TimeScale::Step TimeScale::lowerStep() const {
    constexpr std::array<std::pair<double, Step>, 5> least{{{15, Step::ByDay},
                                                            {13 / 7.0, Step::ByWeek},
                                                            {26 / 30.0, Step::ByMonth},
                                                            {20 / 91.0, Step::ByQuarter},
                                                            {30 / 365.0, Step::ByYear}}};
    for (const auto& [pixelsPerDay, step] : least)
        if (_pixelsPerDay >= pixelsPerDay)
            return step;
    return Step::ByDecade;
}

std::vector<TimeScale::Cell> TimeScale::lowerCells() const { return cells(lowerStep()); }

std::vector<TimeScale::Cell> TimeScale::upperCells() const {
    switch (lowerStep()) {
    case Step::ByDay:
    case Step::ByWeek:
        return cells(Step::ByMonth);
    case Step::ByMonth:
    case Step::ByQuarter:
        return cells(Step::ByYear);
    default:
        return cells(Step::ByDecade);
    }
}

std::vector<TimeScale::Cell> TimeScale::cells(Step step) const {
    const auto startOf = [step](int day) {
        const year_month_day date = dateOf(day);
        const unsigned month = static_cast<unsigned>(date.month());
        switch (step) {
        case Step::ByDay:
            return day;
        case Step::ByWeek:
            return day - ((day + 5) % 7 + 7) % 7; // the Monday before
        case Step::ByMonth:
            return dayOf(date.year() / date.month() / 1);
        case Step::ByQuarter:
            return dayOf(date.year() / std::chrono::month((month - 1) / 3 * 3 + 1) / 1);
        case Step::ByYear:
            return dayOf(date.year() / 1 / 1);
        case Step::ByDecade:
            return dayOf(year(static_cast<int>(date.year()) / 10 * 10) / 1 / 1);
        }
        return day;
    };
    const auto lengthOf = [step](int start) {
        const year_month_day date = dateOf(start);
        switch (step) {
        case Step::ByDay:
            return 1;
        case Step::ByWeek:
            return 7;
        case Step::ByMonth:
            return dayOf((date.year() / date.month() + months(1)) / 1) - start;
        case Step::ByQuarter:
            return dayOf((date.year() / date.month() + months(3)) / 1) - start;
        case Step::ByYear:
            return dayOf((date.year() + years(1)) / 1 / 1) - start;
        case Step::ByDecade:
            return dayOf((date.year() + years(10)) / 1 / 1) - start;
        }
        return 1;
    };
    const bool belowYears = lowerStep() == Step::ByMonth;
    const auto labelOf = [step, belowYears](int start) -> std::string {
        const year_month_day date = dateOf(start);
        const int yearNumber = static_cast<int>(date.year());
        switch (step) {
        case Step::ByDay:
        case Step::ByWeek:
            return fmt::format("{}", static_cast<unsigned>(date.day()));
        case Step::ByMonth:
            return belowYears ? std::string(monthName(date)) : fmt::format("{} {}", monthName(date), yearNumber);
        case Step::ByQuarter:
            return fmt::format("Q{}", (static_cast<unsigned>(date.month()) + 2) / 3);
        case Step::ByYear:
            return fmt::format("{}", yearNumber);
        case Step::ByDecade:
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
        if (step == Step::ByMonth && !fits())
            cell.label = monthName(dateOf(start));
        if (!fits())
            cell.label.clear();
        cells.push_back(std::move(cell));
    }
    return cells;
}

} // namespace brackwater::inspect
