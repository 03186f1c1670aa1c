#include "MPPXMLDOMFilter/Corrections/CalendarDays.h"

#include <algorithm>

namespace brackwater {

namespace {

constexpr std::size_t kSaturday = 6;

std::size_t weekdayOf(std::int64_t day) {
    constexpr std::int64_t kThursday = 4; // 1970-01-01
    const std::int64_t remainder = (day + kThursday) % 7;
    return static_cast<std::size_t>(remainder < 0 ? remainder + 7 : remainder);
}

// The hours that readers show for a day that no calendar mentions.
const MinuteRanges& defaultHours(std::size_t weekday) {
    static const MinuteRanges kNone;
    static const MinuteRanges kWorkingDay = {{8 * 60, 12 * 60}, {13 * 60, 17 * 60}};
    return weekday == 0 || weekday == kSaturday ? kNone : kWorkingDay;
}

} // namespace

CalendarDays::CalendarDays(const MPPCalendar& calendar, const CalendarDays* base) : _base(base) {
    if (!calendar.defaultWorkWeek)
        return;
    const auto days = calendar.defaultWorkWeek->days();
    for (std::size_t weekday = 0; weekday < days.size(); ++weekday)
        if (const MPPDayRanges& ranges = *days[weekday])
            _week[weekday] = minutesOf(*ranges);
}

const MinuteRanges& CalendarDays::hoursOn(std::int64_t day) const {
    const MinuteRanges* exception = exceptionOn(day);
    return exception ? *exception : regularHoursOn(day);
}

const MinuteRanges& CalendarDays::regularHoursOn(std::int64_t day) const {
    if (const MinuteRanges* exception = _base ? _base->exceptionOn(day) : nullptr)
        return *exception;
    return weekHoursOn(weekdayOf(day));
}

const MinuteRanges* CalendarDays::exceptionOn(std::int64_t day) const {
    const auto next = std::upper_bound(
        _exceptions.begin(), _exceptions.end(), day,
        [](std::int64_t sought, const ExceptionDays& exception) { return sought < exception.firstDay; });
    if (next == _exceptions.begin() || std::prev(next)->lastDay < day)
        return nullptr;
    const ExceptionDays& exception = *std::prev(next);
    return exception.week ? &(*exception.week)[weekdayOf(day)] : &exception.hours;
}

const MinuteRanges& CalendarDays::weekHoursOn(std::size_t weekday) const {
    if (_week[weekday])
        return *_week[weekday];
    if (_base)
        return _base->weekHoursOn(weekday);
    return defaultHours(weekday);
}

} // namespace brackwater
