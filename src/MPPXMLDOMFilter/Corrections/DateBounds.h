#pragma once

namespace brackwater {

struct MPPProject;

/// Removes dates that the format cannot store: days before 1983-12-31 and from 2163-06-05 on would wrap around to other
/// days. Readers show an absent date as none. Clips spans of calendar days to the bounds and removes those outside.
void dropDatesOutsideFormat(MPPProject& project);

} // namespace brackwater
