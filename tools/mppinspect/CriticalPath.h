#pragma once

#include "ProjectFile.h"

#include <unordered_set>

namespace brackwater::inspect {

/// Unique ids of the tasks, groups aside, that are not done and whose delay would delay the end of the project. Where
/// the late dates of the file tell it, these decide. A file whose late dates are all those of the schedule was never
/// calculated: there the path is followed from the end of the project back over the links that leave no time between.
[[nodiscard]] std::unordered_set<std::uint32_t> criticalTasks(const ProjectFile& project);

} // namespace brackwater::inspect
