#pragma once

namespace brackwater {

struct MPPProject;

/// Marks tasks that are worked on in pieces and subtracts the gaps from their durations.
void markSplitTasks(MPPProject& project);

/// Spreads the work of each assignment over working time, actual and planned, with the gaps of split tasks. Must run
/// after work, progress and the stop and resume dates are known.
void spreadWork(MPPProject& project);

} // namespace brackwater
