#pragma once

namespace brackwater {

struct MPPProject;

/// Totals of the tasks below each summary and below the project: work, cost, and progress as the finished share of the
/// leaves' durations. A summary starts with its first task and finishes with its last.
void correctSummaryTotals(MPPProject& project);

/// Totals of each resource's assignments.
void correctResourceTotals(MPPProject& project);

} // namespace brackwater
