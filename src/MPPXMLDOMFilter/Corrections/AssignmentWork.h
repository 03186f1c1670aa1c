#pragma once

namespace brackwater {

struct MPPProject;
class AssignmentIndex;

/// The exact work of assignments and tasks from the source, not in whole hours, and material quantities. The work of a
/// task is the sum of its assignments; material has none.
void correctWork(MPPProject& project, const AssignmentIndex& assignments);

} // namespace brackwater
