#pragma once

namespace brackwater {

struct MPPProject;

/// Derives the minutes of a day and of a week, by which readers turn durations into days and weeks, from the hours of
/// the standard calendar. A day is what most of its working days have; a week without any hours changes nothing.
void correctMinutesPerDay(MPPProject& project);

} // namespace brackwater
