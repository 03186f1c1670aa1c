#pragma once

namespace brackwater {

struct MPPProject;

/// Takes out the dates that the format cannot hold: days before 1983-12-31 and from 2163-06-05 on would wrap around to
/// other ones. An absent date is what readers show as none. Spans of a calendar's days are cut at the bounds; those
/// that lie outside go.
void dropDatesOutsideFormat(MPPProject& project);

} // namespace brackwater
