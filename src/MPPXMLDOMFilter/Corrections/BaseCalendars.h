#pragma once

namespace brackwater {

struct MPPProject;

/// Real files derive the calendar of work without a resource from the standard calendar.
void correctDefaultCalendarBase(MPPProject& project);

/// Gives a name to base calendars without one, as the group of resources may be that they come from: readers drop the
/// calendars that derive from a nameless one.
void nameBaseCalendars(MPPProject& project);

} // namespace brackwater
