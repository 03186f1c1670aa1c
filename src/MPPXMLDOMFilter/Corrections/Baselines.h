#pragma once

namespace brackwater {

struct MPPProject;
class AssignmentIndex;

/// Work and cost of the first baseline: of assignments, their tasks, and resources. A task's cost is its fixed cost
/// plus its assignments' costs; summaries have their children's.
void correctBaselines(MPPProject& project, const AssignmentIndex& assignments);

} // namespace brackwater
