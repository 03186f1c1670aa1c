#pragma once

namespace brackwater {

struct MPPProject;

/// Sets each resource's initials to the first character of its name, as planners do: every real file has them.
void addResourceInitials(MPPProject& project);

} // namespace brackwater
