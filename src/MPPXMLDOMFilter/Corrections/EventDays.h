#pragma once

#include "MPPXMLDOMFilter/Corrections/CalendarDays.h"
#include "MPPXMLDOMFilter/Model/MPPCalendarSource.h"

namespace brackwater {

/// Folds the events of a calendar into sorted, disjoint spans of days with equal hours. Time off is subtracted from the
/// day's regular hours; overtime is added, even during time off. A span of more than half a year in which the weekdays
/// differ becomes its own week; exceptions of the base calendar take precedence over it. Leaves out days that the
/// format cannot store. `calendar` provides the regular hours.
[[nodiscard]] std::vector<ExceptionDays> daysOfEvents(const MPPCalendarSource& events, const CalendarDays& calendar);

} // namespace brackwater
