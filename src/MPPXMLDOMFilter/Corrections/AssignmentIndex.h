#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace brackwater {

struct MPPAssignment;
struct MPPProject;
struct MPPTask;

/// The assignments of each task. Tasks and assignments must have their final IDs, and outlive the index.
class AssignmentIndex {
public:
    explicit AssignmentIndex(const MPPProject& project);

    /// In the order of their IDs; none if the task is not in the project.
    [[nodiscard]] std::span<MPPAssignment* const> ofTask(const MPPTask& task) const;

private:
    std::vector<std::size_t> _begins; ///< by task ID, and the end of the last one
    std::vector<MPPAssignment*> _assignments;
};

} // namespace brackwater
