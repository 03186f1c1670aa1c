#pragma once

namespace brackwater {

class MSPEScheduleInfo;
class MSPEXMLCalendarAdapter;

/// Adds a schedule's week days, exceptions and work weeks to its calendar; an empty schedule adds nothing.
void mapScheduleInfoToCalendar(const MSPEScheduleInfo& info, MSPEXMLCalendarAdapter& calendar);

} // namespace brackwater
