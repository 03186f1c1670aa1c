#pragma once

namespace brackwater {

struct MPPProject;

/// Derives the minutes per day and per week, with which readers convert durations to days and weeks, from the hours of
/// the standard calendar. A day has the length of most of its working days; a week without hours changes nothing.
void correctMinutesPerDay(MPPProject& project);

} // namespace brackwater
