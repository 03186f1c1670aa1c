#pragma once

namespace brackwater {

struct MPPProject;

/// What the tasks below a summary, and below the project, add up to: work, cost, and progress as the share of the
/// leaves' durations that is done. A summary begins with the first of them and is finished with the last.
void correctSummaryTotals(MPPProject& project);

/// What the assignments of each resource add up to.
void correctResourceTotals(MPPProject& project);

} // namespace brackwater
