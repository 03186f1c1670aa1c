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

CalendarHours::CalendarHours(const Calendar* calendar) {
    if (calendar == nullptr)
        return;
    if (calendar->hasOwnHours)
        _week = &calendar->week;
    forEachSpan(calendar->exceptions, [this](DaySpan span, const CalendarException& exception) {
        _exceptions.add(span.first, span.last, exception.ranges);
    });
    for (const WorkWeek& workWeek : calendar->workWeeks)
        _workWeeks.add(workWeek.firstDay, workWeek.lastDay, workWeek.week);
    _exceptions.arrange();
    _workWeeks.arrange();
}

// An exception of the base comes before a week of the calendar's own.
const std::vector<TimeRange>& CalendarHours::on(int day) const {
    const CalendarHours* level = this;
    for (int count = 0; level != nullptr && count < kMostLevels; ++count, level = level->_base)
        if (const auto* ranges = level->_exceptions.find(day))
            return *ranges;
    level = this;
    for (int count = 0; level != nullptr && count < kMostLevels; ++count, level = level->_base)
        if (const DayRanges* ranges = level->ofWeek(day))
            return **ranges;
    return usualHours(weekdayOf(day));
}

// Null where the calendar leaves the day to its base.
const DayRanges* CalendarHours::ofWeek(int day) const {
    const std::size_t weekday = weekdayOf(day);
    for (const Week* week : {_workWeeks.find(day), _week})
        if (week != nullptr && week->at(weekday))
            return &week->at(weekday);
    return nullptr;
}

} // namespace brackwater::inspect
