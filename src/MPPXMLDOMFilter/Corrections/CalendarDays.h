#pragma once

#include "MPPXMLDOMFilter/Corrections/MinuteRanges.h"
#include "MPPXMLDOMFilter/Model/MPPCalendar.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// Hours by weekday, Sunday first.
using WeekHours = std::array<MinuteRanges, 7>;

/// Days that differ from the week: all with equal hours or, for a long span, with their own week. Days are counted from
/// 1970-01-01.
struct ExceptionDays {
    std::int64_t firstDay = 0;
    std::int64_t lastDay = 0;
    MinuteRanges hours;
    std::string name;
    std::optional<WeekHours> week;
};

/// The hours of a calendar day by day: its week, its exceptions, and then those of its base calendar.
class CalendarDays {
public:
    /// `base` may be null and must outlive this. Ignores dated work weeks.
    CalendarDays(const MPPCalendar& calendar, const CalendarDays* base);

    /// Must be sorted and disjoint.
    void setExceptions(std::vector<ExceptionDays> exceptions) { _exceptions = std::move(exceptions); }
    [[nodiscard]] const std::vector<ExceptionDays>& exceptions() const noexcept { return _exceptions; }

    /// An exception of the base calendar takes precedence over the calendar's own week, as in readers.
    [[nodiscard]] const MinuteRanges& hoursOn(std::int64_t day) const;
    /// The hours without the calendar's own exceptions.
    [[nodiscard]] const MinuteRanges& regularHoursOn(std::int64_t day) const;

    /// Only the week; 0 is Sunday.
    [[nodiscard]] const MinuteRanges& weekHoursOn(std::size_t weekday) const;

private:
    [[nodiscard]] const MinuteRanges* exceptionOn(std::int64_t day) const;

    const CalendarDays* _base;
    std::array<std::optional<MinuteRanges>, 7> _week; ///< Sunday first; nothing if the day is inherited
    std::vector<ExceptionDays> _exceptions;
};

} // namespace brackwater
