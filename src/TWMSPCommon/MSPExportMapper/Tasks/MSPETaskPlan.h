#pragma once

#include "Platform/Xml/XMLElement.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace brackwater {

class MSPEMapper;

/// A task and its place in the tree.
struct MSPEPlannedTask {
    std::optional<XMLElement> element; ///< only the top task can be missing
    std::optional<XMLElement> parent;  ///< nothing for the top task
    std::size_t level = 0;             ///< 0 for the top task
    bool isGroup = false;
    bool isSplit = false;
    std::size_t numberOfAssignments = 0; ///< in the source
    std::int64_t assignmentUID = 0;      ///< of the first one that the task gets
};

/// The tasks of the tree under `topTask` in the order in which they are mapped, depth first; a task's index is its
/// number. Registers their UIDs. Ends with the first task that cannot be mapped, because its element or id is missing
/// or invalid, or its UID repeats another one, as in a cycle.
[[nodiscard]] std::vector<MSPEPlannedTask> planTasks(MSPEMapper* mapper, XMLElement zelbScenario,
                                                     std::optional<XMLElement> topTask);

} // namespace brackwater
