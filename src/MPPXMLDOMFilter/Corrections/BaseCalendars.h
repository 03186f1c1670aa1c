#pragma once

namespace brackwater {

struct MPPProject;

/// Bases the calendar of work without a resource on the standard calendar, as real files do.
void correctDefaultCalendarBase(MPPProject& project);

/// Names nameless base calendars, which come from nameless resource groups: readers drop calendars that derive from a
/// nameless one.
void nameBaseCalendars(MPPProject& project);

} // namespace brackwater
