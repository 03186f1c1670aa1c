#pragma once

namespace brackwater {

struct MPPProject;

/// Makes the exceptions of all calendars anew from the events of the source: a day with hours off keeps the others, and
/// overtime stands beside the regular hours. What crosses midnight goes on the next day, and a day of more than five
/// ranges, which the format cannot hold, has the nearest of them joined. Calendars without a source stay as they are.
void correctCalendarHours(MPPProject& project);

/// Counts the days of each exception and numbers the exceptions through, as real files do.
void numberCalendarExceptions(MPPProject& project);

} // namespace brackwater
