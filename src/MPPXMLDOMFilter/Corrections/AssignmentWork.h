#pragma once

namespace brackwater {

struct MPPProject;
class AssignmentIndex;

/// The work of assignments and tasks as the source tells it, not in whole hours, and material in its quantity. The work
/// of a task is the sum of its assignments; material has none.
void correctWork(MPPProject& project, const AssignmentIndex& assignments);

} // namespace brackwater
