#pragma once

namespace brackwater {

struct MPPProject;
class AssignmentIndex;

/// Actual and remaining values of each task and its assignments: work, duration, percentages, start and finish dates,
/// and where work stopped and resumes. Actual and remaining amounts always add up to the whole. Summaries are left to
/// their children.
void correctProgress(MPPProject& project, const AssignmentIndex& assignments);

} // namespace brackwater
