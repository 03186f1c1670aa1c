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

/// Days that differ from the week: all of equal hours, or, in a long span of days, with a week of their own. Days are
/// counted from 1970-01-01.
struct ExceptionDays {
    std::int64_t firstDay = 0;
    std::int64_t lastDay = 0;
    MinuteRanges hours;
    std::string name;
    std::optional<WeekHours> week;
};

/// The hours of a calendar day by day: its week, its exceptions, and behind them those of the calendar that it derives
/// from.
class CalendarDays {
public:
    /// `base` may be null and must outlive this. Dated work weeks are not looked at.
    CalendarDays(const MPPCalendar& calendar, const CalendarDays* base);

    /// In order and apart from one another.
    void setExceptions(std::vector<ExceptionDays> exceptions) { _exceptions = std::move(exceptions); }
    [[nodiscard]] const std::vector<ExceptionDays>& exceptions() const noexcept { return _exceptions; }

    /// An exception of the base calendar goes before a week of one's own, as readers have it.
    [[nodiscard]] const MinuteRanges& hoursOn(std::int64_t day) const;
    /// What holds where the calendar's own exceptions are left out.
    [[nodiscard]] const MinuteRanges& regularHoursOn(std::int64_t day) const;

    /// Of the week alone; 0 is Sunday.
    [[nodiscard]] const MinuteRanges& weekHoursOn(std::size_t weekday) const;

private:
    [[nodiscard]] const MinuteRanges* exceptionOn(std::int64_t day) const;

    const CalendarDays* _base;
    std::array<std::optional<MinuteRanges>, 7> _week; ///< Sunday first; nothing where the day is inherited
    std::vector<ExceptionDays> _exceptions;
};

} // namespace brackwater
