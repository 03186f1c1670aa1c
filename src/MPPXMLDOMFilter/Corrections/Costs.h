#pragma once

namespace brackwater {

struct MPPProject;
class AssignmentIndex;

/// What assignments cost by their resources' rates, and tasks by their assignments and fixed costs; done and remaining
/// parts follow the progress. Summaries have but their own costs so far, and of their fixed cost nothing is done.
void correctCosts(MPPProject& project, const AssignmentIndex& assignments);

} // namespace brackwater
