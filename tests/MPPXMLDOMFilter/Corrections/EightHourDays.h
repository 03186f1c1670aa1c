#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendar.h"
#include "Platform/Time/GregorianCalendar.h"

#include <cstdint>
#include <memory>

namespace brackwater::test {

inline Date march(std::int64_t day, std::int64_t hour) {
    return GregorianCalendar().dateFromFields({2027, 3, day, hour, 0, 0}).value();
}

/// All days have working time from 8 to 16.
inline std::shared_ptr<MPPCalendar> calendarOfEightHours() {
    auto calendar = std::make_shared<MPPCalendar>();
    calendar->defaultWorkWeek = std::make_shared<MPPCalendarWorkWeek>();
    MPPCalendarWorkWeek& week = *calendar->defaultWorkWeek;
    MPPCalendarTime begin;
    begin.setHours(8);
    MPPCalendarTime end;
    end.setHours(16);
    for (MPPDayRanges* day :
         {&week.sundayWorkRanges, &week.mondayWorkRanges, &week.tuesdayWorkRanges, &week.wednesdayWorkRanges,
          &week.thursdayWorkRanges, &week.fridayWorkRanges, &week.saturdayWorkRanges})
        *day = std::make_shared<MPPRangeList>(
            MPPRangeList{std::make_shared<MPPCalendarTimeRange>(MPPCalendarTimeRange{begin, end})});
    return calendar;
}

} // namespace brackwater::test
