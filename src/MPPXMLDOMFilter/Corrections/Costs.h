#pragma once

namespace brackwater {

struct MPPProject;
class AssignmentIndex;

/// Costs of assignments from their resources' rates, and of tasks from their assignments and fixed costs; actual and
/// remaining costs follow the progress. At this point summaries have only their own costs, with no actual fixed cost.
void correctCosts(MPPProject& project, const AssignmentIndex& assignments);

} // namespace brackwater
