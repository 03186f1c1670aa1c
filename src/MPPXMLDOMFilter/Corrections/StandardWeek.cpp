#include "MPPXMLDOMFilter/Corrections/StandardWeek.h"

#include "MPPXMLDOMFilter/Corrections/CalendarDays.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <algorithm>
#include <map>

namespace brackwater {

void correctMinutesPerDay(MPPProject& project) {
    if (!project.standardCalendar)
        return;
    const CalendarDays days(*project.standardCalendar, nullptr);
    std::map<std::uint32_t, int> daysByMinutes;
    std::uint64_t week = 0;
    for (std::size_t weekday = 0; weekday < 7; ++weekday) {
        std::uint32_t minutes = 0;
        for (const MinuteRange& range : days.weekHoursOn(weekday))
            minutes += range.end - range.start;
        week += minutes;
        if (minutes > 0)
            ++daysByMinutes[minutes];
    }
    if (week == 0)
        return;
    const auto usual =
        std::max_element(daysByMinutes.begin(), daysByMinutes.end(),
                         [](const auto& left, const auto& right) { return left.second <= right.second; });
    project.minutesPerDay = usual->first;
    project.minutesPerWeek = week;
}

} // namespace brackwater
