#include "CalendarHours.h"

#include <algorithm>

namespace brackwater::inspect {

namespace {

// Day 0 was a Saturday.
std::size_t weekdayOf(int day) { return static_cast<std::size_t>((day + 6) % 7); }

const std::vector<TimeRange>& usualHours(std::size_t weekday) {
    static const std::vector<TimeRange> free, working{{4800, 7200}, {7800, 10200}};
    return weekday == 0 || weekday == 6 ? free : working;
}

} // namespace

template <typename Value>
void DayTable<Value>::arrange() {
    std::ranges::stable_sort(_spans, {}, &Span::first);
}

template <typename Value>
const Value* DayTable<Value>::find(int day) const {
    constexpr int mostOverlapping = 16; // keeps a look cheap; the spans of real files do not overlap
    auto span = std::ranges::upper_bound(_spans, day, {}, &Span::first);
    for (int looked = 0; span != _spans.begin() && looked < mostOverlapping; ++looked)
        if ((--span)->last >= day)
            return span->value;
    return nullptr;
}

void CalendarHours::add(const Calendar& calendar) {
    Level& level = _levels.emplace_back();
    if (calendar.hasOwnHours)
        level.week = &calendar.week;
    forEachSpan(calendar.exceptions, [&level](DaySpan span, const CalendarException& exception) {
        level.exceptions.add(span.first, span.last, exception.ranges);
    });
    for (const WorkWeek& workWeek : calendar.workWeeks)
        level.workWeeks.add(workWeek.firstDay, workWeek.lastDay, workWeek.week);
    level.exceptions.arrange();
    level.workWeeks.arrange();
}

const std::vector<TimeRange>& CalendarHours::on(int day) const {
    for (const Level& level : _levels)
        if (const auto* ranges = level.exceptions.find(day))
            return *ranges;
    const std::size_t weekday = weekdayOf(day);
    for (const Level& level : _levels) {
        const Week* special = level.workWeeks.find(day);
        for (const Week* week : {special, level.week})
            if (week != nullptr && week->at(weekday))
                return *week->at(weekday);
    }
    return usualHours(weekday);
}

} // namespace brackwater::inspect
