#pragma once

namespace brackwater {

struct MPPProject;
class AssignmentIndex;

/// What is done of each task and its assignments, and what remains: work, duration, percentages, the dates of begin and
/// end, and where work stopped and goes on. The two parts of an amount always make up the whole. Summaries are left
/// to their children.
void correctProgress(MPPProject& project, const AssignmentIndex& assignments);

} // namespace brackwater
