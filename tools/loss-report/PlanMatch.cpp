#include "loss-report/PlanMatch.h"

#include <algorithm>

namespace brackwater::lossreport {

namespace {

std::uint64_t linkKey(std::uint32_t predecessor, std::uint32_t successor) {
    return static_cast<std::uint64_t>(successor) << 32 | predecessor;
}

std::uint64_t keyOf(const inspect::Link* link) { return linkKey(link->predecessor, link->successor); }

template <typename Record, typename Key>
std::vector<const Record*> sortedBy(const std::vector<Record>& records, const Key& key) {
    std::vector<const Record*> sorted;
    sorted.reserve(records.size());
    for (const Record& record : records)
        sorted.push_back(&record);
    if (!std::ranges::is_sorted(sorted, {}, key))
        std::ranges::stable_sort(sorted, {}, key);
    return sorted;
}

std::uint32_t taskOf(const inspect::Assignment* assignment) { return assignment->taskId; }

/// The records of a sorted list with this key.
template <typename Record, typename Value, typename Key>
std::span<const Record* const> withKey(const std::vector<const Record*>& sorted, const Value& value, const Key& key) {
    return {std::ranges::lower_bound(sorted, value, {}, key), std::ranges::upper_bound(sorted, value, {}, key)};
}

/// Walks two lists in parallel. If their lengths differ, a document record whose successor has the row's name is
/// missing from the file.
template <typename Pairs, typename Rows, typename Name, typename RowName>
void pairInOrder(Pairs& pairs, const Rows& rows, const Name& name, const RowName& rowName) {
    std::size_t row = 0;
    for (std::size_t i = 0; i < pairs.size() && row < rows.size(); ++i) {
        const bool isMissing = pairs.size() - i > rows.size() - row && i + 1 < pairs.size() &&
                               name(*pairs[i]->source) != rowName(*rows[row]) &&
                               name(*pairs[i + 1]->source) == rowName(*rows[row]);
        if (!isMissing)
            pairs[i]->file = rows[row++];
    }
}

/// Adds the records reachable in a tree, parents first, each once.
template <typename Pairs, typename Places, typename Find, typename Goes>
void walk(Pairs& pairs, Places& places, std::string_view top, const Find& find, const Goes& goesDown) {
    struct Step {
        std::string_view id;
        std::optional<std::size_t> parent;
    };
    std::vector<Step> open{{top, std::nullopt}};
    while (!open.empty()) {
        const Step step = open.back();
        open.pop_back();
        const auto* found = find(step.id);
        if (found == nullptr || !places.try_emplace(step.id, pairs.size()).second)
            continue;
        const std::size_t place = pairs.size();
        auto& pair = pairs.emplace_back();
        pair.source = found;
        if constexpr (requires { pair.parent; })
            pair.parent = step.parent;
        if (goesDown(*found))
            for (auto child = found->children.rbegin(); child != found->children.rend(); ++child)
                open.push_back({*child, place});
    }
}

} // namespace

PlanMatch::PlanMatch(const SourcePlan& plan, const inspect::ProjectFile& file)
    : _assignments(sortedBy(file.assignments, taskOf)), _links(sortedBy(file.links, keyOf)) {
    for (const inspect::Calendar& calendar : file.calendars)
        _calendars.try_emplace(calendar.id, &calendar);
    for (const inspect::Resource& resource : file.resources)
        if (resource.kind == inspect::ResourceKind::Material)
            _materials.insert(resource.uniqueId);
    walkTasks(plan.main);
    walkResources(plan.main);
    pairTasks(file);
    pairResources(file);
}

void PlanMatch::walkTasks(const SourceScenario& scenario) {
    _tasks.reserve(scenario.tasks.size());
    _taskPlaces.reserve(scenario.tasks.size());
    walk(
        _tasks, _taskPlaces, scenario.topTask, [&](std::string_view id) { return scenario.task(id); },
        [](const SourceTask& task) { return task.isGroup(); });
    if (!_tasks.empty())
        _tasks.front().isTop = true;
}

void PlanMatch::walkResources(const SourceScenario& scenario) {
    walk(
        _resources, _resourcePlaces, scenario.topResource, [&](std::string_view id) { return scenario.resource(id); },
        [](const SourceResource& resource) { return resource.isGroup(); });
}

void PlanMatch::pairTasks(const inspect::ProjectFile& file) {
    const auto byId = sortedBy(file.tasks, [](const inspect::Task* task) { return task->id; });
    std::vector<const inspect::Task*> rows;
    const inspect::Task* project = nullptr;
    for (const inspect::Task* task : byId)
        if (task->uniqueId == 0)
            project = task;
        else
            rows.push_back(task);
    _hasTopTaskRow = !_tasks.empty() && rows.size() == _tasks.size();
    std::vector<TaskPair*> pairs;
    for (TaskPair& pair : _tasks)
        if (!pair.isTop || _hasTopTaskRow)
            pairs.push_back(&pair);
        else
            pair.file = project;
    pairInOrder(
        pairs, rows, [](const SourceTask& task) { return task.title; },
        [](const inspect::Task& task) { return std::string_view(task.title); });
}

void PlanMatch::pairResources(const inspect::ProjectFile& file) {
    std::vector<const inspect::Resource*> rows;
    for (const inspect::Resource* resource :
         sortedBy(file.resources, [](const inspect::Resource* resource) { return resource->id; }))
        if (resource->uniqueId != 0)
            rows.push_back(resource);
    std::vector<ResourcePair*> pairs;
    for (ResourcePair& pair : _resources)
        if (pair.source->isWorker())
            pairs.push_back(&pair);
    pairInOrder(
        pairs, rows, [](const SourceResource& resource) { return resource.name; },
        [](const inspect::Resource& resource) { return std::string_view(resource.name); });
}

const TaskPair* PlanMatch::task(std::string_view id) const {
    const auto found = _taskPlaces.find(id);
    return found == _taskPlaces.end() ? nullptr : &_tasks[found->second];
}

const ResourcePair* PlanMatch::resource(std::string_view id) const {
    const auto found = _resourcePlaces.find(id);
    return found == _resourcePlaces.end() ? nullptr : &_resources[found->second];
}

std::span<const inspect::Assignment* const> PlanMatch::assignmentsOf(std::uint32_t task) const {
    return withKey(_assignments, task, taskOf);
}

std::span<const inspect::Link* const> PlanMatch::links(std::uint32_t predecessor, std::uint32_t successor) const {
    return withKey(_links, linkKey(predecessor, successor), keyOf);
}

const inspect::Calendar* PlanMatch::calendar(std::uint32_t id) const {
    const auto found = _calendars.find(id);
    return found == _calendars.end() ? nullptr : found->second;
}

} // namespace brackwater::lossreport
