#pragma once

#include "CalendarHours.h"

#include <unordered_map>

namespace brackwater::inspect {

/// Counts working time by the calendars of a project, which must outlive this. A calendar is prepared when it is first
/// asked for; one that is not there stands for the usual hours.
class WorkingTime {
public:
    using CalendarId = std::optional<std::uint32_t>;

    explicit WorkingTime(const ProjectFile& project);

    /// The earliest moment at which this much working time has gone by, in tenths of a minute. Nothing where the
    /// calendar ends before, or where more days were walked through in all than the plan accounts for.
    [[nodiscard]] std::optional<Date> after(CalendarId calendar, Date start, std::int64_t tenths);
    /// The first moment from this one on at which somebody works; nothing likewise.
    [[nodiscard]] std::optional<Date> nextWorking(CalendarId calendar, Date moment);

private:
    const CalendarHours& hoursOf(CalendarId asked);
    template <typename Take>
    std::optional<Date> walk(CalendarId calendar, Date from, const Take& take);

    std::unordered_map<std::uint32_t, const Calendar*> _calendars;
    std::unordered_map<std::uint32_t, CalendarHours> _hours;
    std::int64_t _daysLeft; ///< keeps the cost in step with the size of the plan
};

} // namespace brackwater::inspect
