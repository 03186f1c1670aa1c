#pragma once

#include "Platform/Time/Date.h"

namespace brackwater {

class MSPEScheduleCalendar;

// Working time of dates. The standard calendar always applies: another one (it may be null) is ignored with a warning.

/// The date moved by seconds of working time; the date itself if there is no result.
[[nodiscard]] Date dateAdvancedByDuration(Date date, double duration, bool forward,
                                          const MSPEScheduleCalendar* calendar);
/// The same; see MSPEScheduleCalendar::dateAdvanceByDuration for `allowEdgeTime`.
[[nodiscard]] Date dateAdvancedByDuration(Date date, double duration, bool forward, bool allowEdgeTime,
                                          const MSPEScheduleCalendar* calendar);
[[nodiscard]] bool isWorkingDayInCalendar(Date date, const MSPEScheduleCalendar* calendar);

} // namespace brackwater
