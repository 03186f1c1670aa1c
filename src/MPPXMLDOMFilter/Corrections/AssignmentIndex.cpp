#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

AssignmentIndex::AssignmentIndex(const MPPProject& project) : _begins(project.tasks.size() + 2) {
    const auto placeOf = [this](const MPPAssignment& assignment) -> std::size_t* {
        const MPPTask* task = assignment.task.record();
        return task && task->ID + 1 < _begins.size() ? &_begins[task->ID + 1] : nullptr;
    };
    for (const auto& assignment : project.assignments)
        if (std::size_t* count = placeOf(*assignment))
            ++*count;
    for (std::size_t id = 1; id < _begins.size(); ++id)
        _begins[id] += _begins[id - 1];
    _assignments.resize(_begins.back());
    std::vector<std::size_t> next = _begins;
    for (const auto& assignment : project.assignments)
        if (const std::size_t* end = placeOf(*assignment))
            _assignments[next[static_cast<std::size_t>(end - _begins.data()) - 1]++] = assignment.get();
}

std::span<MPPAssignment* const> AssignmentIndex::ofTask(const MPPTask& task) const {
    if (task.ID + 1 >= _begins.size())
        return {};
    return {_assignments.data() + _begins[task.ID], _begins[task.ID + 1] - _begins[task.ID]};
}

} // namespace brackwater
