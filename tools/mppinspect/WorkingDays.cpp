#include "WorkingDays.h"

#include "CalendarHours.h"

#include <algorithm>
#include <numeric>

namespace brackwater::inspect {

namespace {

constexpr std::uint32_t kDefaultCalendar = 0x0240000E;

// Day 0 was a Saturday.
std::size_t weekdayOf(int day) { return static_cast<std::size_t>(((day + 6) % 7 + 7) % 7); }

bool isFree(const Week& week, int day) {
    const std::size_t weekday = weekdayOf(day);
    const DayRanges& ranges = week.at(weekday);
    return ranges ? ranges->empty() : weekday == 0 || weekday == 6;
}

/// Days that are told one after the other; what was told first holds. However much the spans overlap, each day is
/// touched once.
class TellOnce {
public:
    explicit TellOnce(DaySpan within)
        : _within(within), _next(static_cast<std::size_t>(within.last - within.first + 2)) {
        std::iota(_next.begin(), _next.end(), std::size_t{0});
    }

    template <typename Tell>
    void tell(DaySpan span, const Tell& tellDay) {
        if (span.last < _within.first || span.first > _within.last || span.first > span.last)
            return;
        const auto last = static_cast<std::size_t>(std::min(span.last, _within.last) - _within.first);
        const auto first = static_cast<std::size_t>(std::max(span.first, _within.first) - _within.first);
        for (std::size_t day = untold(first); day <= last; day = untold(day)) {
            tellDay(_within.first + static_cast<int>(day));
            _next[day] = day + 1;
        }
    }

private:
    std::size_t untold(std::size_t day) {
        std::size_t found = day;
        while (_next[found] != found)
            found = _next[found];
        while (_next[day] != day) {
            const std::size_t next = _next[day];
            _next[day] = found;
            day = next;
        }
        return found;
    }

    DaySpan _within;
    std::vector<std::size_t> _next;
};

} // namespace

const Calendar* projectCalendar(const ProjectFile& project) {
    const auto property = std::ranges::find(project.properties, kDefaultCalendar, &ProjectProperty::type);
    const Calendar* first = nullptr;
    for (const Calendar& calendar : project.calendars) {
        if (calendar.baseId || calendar.resourceId)
            continue;
        if (property != project.properties.end() && calendar.name == property->value)
            return &calendar;
        if (first == nullptr)
            first = &calendar;
    }
    return first;
}

std::vector<DaySpan> freeDays(const Calendar* calendar, DaySpan within) {
    std::vector<DaySpan> spans;
    if (within.last < within.first)
        return spans;
    std::vector<bool> free(static_cast<std::size_t>(within.last - within.first + 1));
    const auto mark = [&](int day, bool isFreeDay) { free[static_cast<std::size_t>(day - within.first)] = isFreeDay; };
    TellOnce days(within);
    if (calendar != nullptr) {
        forEachSpan(calendar->exceptions, [&](DaySpan span, const CalendarException& exception) {
            days.tell(span, [&](int day) { mark(day, exception.ranges.empty()); });
        });
        for (const WorkWeek& week : calendar->workWeeks)
            days.tell({week.firstDay, week.lastDay}, [&](int day) { mark(day, isFree(week.week, day)); });
    }
    const Week week = calendar != nullptr && calendar->hasOwnHours ? calendar->week : Week();
    days.tell(within, [&](int day) { mark(day, isFree(week, day)); });
    for (int day = within.first; day <= within.last; ++day) {
        if (!free[static_cast<std::size_t>(day - within.first)])
            continue;
        if (!spans.empty() && spans.back().last == day - 1)
            spans.back().last = day;
        else
            spans.push_back({day, day});
    }
    return spans;
}

} // namespace brackwater::inspect
