#pragma once

namespace brackwater {

struct MPPProject;

/// Rebuilds the exceptions of all calendars from the events of the source: a day with hours off keeps the other hours,
/// and overtime adds to the regular hours. Ranges continue after midnight on the next day. The format stores five
/// ranges per day: with more, the closest ones are joined. Calendars without a source stay unchanged.
void correctCalendarHours(MPPProject& project);

/// Counts the days of each exception and numbers all exceptions, as real files do.
void numberCalendarExceptions(MPPProject& project);

} // namespace brackwater
