#include "Decoders.h"

#include <fmt/format.h>

namespace brackwater::inspect {

Outline::Outline(const std::vector<Task>& tasks) : _spans(tasks.size()), _depths(tasks.size()) {
    for (std::size_t i = 0; i < tasks.size(); ++i)
        _positions.try_emplace(tasks[i].uniqueId, i);
    std::vector<std::vector<std::size_t>> children(tasks.size());
    std::vector<std::size_t> roots;
    for (std::size_t i = 0; i < tasks.size(); ++i) {
        const auto parent = tasks[i].parentId ? _positions.find(*tasks[i].parentId) : _positions.end();
        if (parent == _positions.end())
            roots.push_back(i);
        else
            children[parent->second].push_back(i);
    }
    _order.reserve(tasks.size());
    for (const std::size_t root : roots)
        walkFrom(root, children);
}

// Depth first, with a stack of its own: an outline may be as deep as the file says.
void Outline::walkFrom(std::size_t root, const std::vector<std::vector<std::size_t>>& children) {
    struct Visit {
        std::size_t task, nextChild;
    };
    std::vector<Visit> stack;
    const auto enter = [&](std::size_t task) {
        _depths[task] = static_cast<int>(stack.size());
        _spans[task].first = _order.size();
        _order.push_back(task);
        stack.push_back({task, 0});
    };
    enter(root);
    while (!stack.empty()) {
        Visit& visit = stack.back();
        if (visit.nextChild < children[visit.task].size()) {
            enter(children[visit.task][visit.nextChild++]);
        } else {
            _spans[visit.task].past = _order.size();
            stack.pop_back();
        }
    }
}

bool Outline::isAncestor(std::uint32_t ancestor, std::uint32_t task) const {
    const auto above = _positions.find(ancestor), below = _positions.find(task);
    if (above == _positions.end() || below == _positions.end() || above == below)
        return false;
    const Span outer = _spans[above->second], inner = _spans[below->second];
    return outer.first < inner.first && inner.past <= outer.past;
}

void arrangeOutline(std::vector<Task>& tasks, Complaints& complaints) {
    const Outline outline(tasks);
    for (Task& task : tasks)
        task.depth = -1;
    for (const std::size_t position : outline.order())
        tasks[position].depth = outline.depth(position);
    std::map<std::uint32_t, Task*> byId;
    for (Task& task : tasks)
        byId.try_emplace(task.uniqueId, &task);
    for (const Task& task : tasks)
        if (const auto parent = task.parentId ? byId.find(*task.parentId) : byId.end(); parent != byId.end())
            parent->second->summary = true;
    for (Task& task : tasks) {
        if (task.depth < 0) {
            complaints.add("TBkndTask", "a task stands below itself", fmt::format("task {}", task.uniqueId));
            task.depth = 0;
        } else if (task.parentId && !byId.contains(*task.parentId)) {
            complaints.add("TBkndTask", "a task's parent is missing",
                           fmt::format("task {} below {}", task.uniqueId, *task.parentId));
        }
    }
}

} // namespace brackwater::inspect
