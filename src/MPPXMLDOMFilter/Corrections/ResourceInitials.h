#pragma once

namespace brackwater {

struct MPPProject;

/// Gives each resource the first character of its name as its initials, as planners do: every real file has them.
void addResourceInitials(MPPProject& project);

} // namespace brackwater
