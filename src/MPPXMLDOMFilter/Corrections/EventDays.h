#pragma once

#include "MPPXMLDOMFilter/Corrections/CalendarDays.h"
#include "MPPXMLDOMFilter/Model/MPPCalendarSource.h"

namespace brackwater {

/// Folds the events of a calendar into days of equal hours, in order and apart from one another. Time off is taken from
/// the day's regular hours; overtime is added, also where time off covers it. A span of more than half a year in which
/// the weekdays differ becomes a week of its own, which exceptions of the base calendar go before. Days that the format
/// cannot hold are left out. `calendar` tells the regular hours.
[[nodiscard]] std::vector<ExceptionDays> daysOfEvents(const MPPCalendarSource& events, const CalendarDays& calendar);

} // namespace brackwater
