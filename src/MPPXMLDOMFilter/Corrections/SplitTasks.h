#pragma once

namespace brackwater {

struct MPPProject;

/// Marks the tasks that are worked in pieces and takes the pauses out of their durations.
void markSplitTasks(MPPProject& project);

/// Spreads the work of each assignment over working time, done and planned, with the pauses of split tasks. Comes when
/// work, progress and the dates of stop and resumption are known.
void spreadWork(MPPProject& project);

} // namespace brackwater
