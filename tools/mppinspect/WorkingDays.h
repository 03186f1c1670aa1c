#pragma once

#include "ProjectFile.h"

namespace brackwater::inspect {

/// The calendar that the project goes by: the one of the name that the project's properties tell, else the first base
/// calendar. Null without one.
[[nodiscard]] const Calendar* projectCalendar(const ProjectFile& project);

/// The days between two, both included, on which nobody works by the calendar, as runs. Days count from 1983-12-31.
/// Without a calendar these are Saturdays and Sundays, as are the days that a week leaves open.
[[nodiscard]] std::vector<DaySpan> freeDays(const Calendar* calendar, DaySpan within);

} // namespace brackwater::inspect
