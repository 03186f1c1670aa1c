#include "MPPXMLDOMFilter/Corrections/Baselines.h"

#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Corrections/ResourceRates.h"
#include "MPPXMLDOMFilter/Corrections/SharedWork.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string_view>
#include <unordered_map>

namespace brackwater {

namespace {

constexpr double kSecondsOfHour = 3600.0;
constexpr double kHundredths = 100.0;

using ResourcesById = std::unordered_map<std::string_view, const MPPResource*>;

ResourcesById resourcesById(const MPPProject& project) {
    ResourcesById resources;
    for (const auto& resource : project.resources)
        if (resource->source)
            resources.emplace(resource->source->id, resource.get());
    return resources;
}

// One resource's share of a task's work and cost in a baseline; material has no work.
struct Amount {
    const MPPResource* resource = nullptr; ///< null if the plan no longer has it
    double hours = 0;
    double cost = 0;
    std::ptrdiff_t taken = 0; ///< in a resource's first amount: how many of its amounts already have an assignment
};

class BaselinePass {
public:
    explicit BaselinePass(const MPPProject& project) : _resources(resourcesById(project)) {}

    void correct(MPPTask& task, std::span<MPPAssignment* const> assignments) {
        if (!task.baseline0 || !task.source || !task.source->baseline)
            return;
        const MPPSourceTaskBaseline& source = *task.source->baseline;
        findAmounts(source);
        MPPTaskBaseline& baseline = *task.baseline0;
        baseline.fixedCost = baseline.cost = source.staticCost * kHundredths;
        baseline.work = _amounts.empty() ? source.effort / kSecondsOfHour : 0;
        for (const Amount& amount : _amounts) {
            baseline.work += amount.hours;
            baseline.cost += amount.cost;
        }
        std::stable_sort(_amounts.begin(), _amounts.end(), [](const Amount& left, const Amount& right) {
            return std::less<>()(left.resource, right.resource);
        });
        for (const MPPAssignment* assignment : assignments)
            correctAssignment(*assignment, baseline);
    }

private:
    void findAmounts(const MPPSourceTaskBaseline& source) {
        _shares.clear();
        _amounts.clear();
        for (const MPPSourceBaselineAssignment& assignment : source.assignments) {
            const auto found = _resources.find(assignment.resourceId);
            const MPPResource* resource = found == _resources.end() ? nullptr : found->second;
            if (resource && resource->source->kind == MPPResourceKind::Material)
                continue;
            _shares.push_back({resource ? resource->source->kind : MPPResourceKind::Staff, assignment.units});
            _amounts.push_back({resource, 0, 0, 0});
        }
        const std::vector<double> work = sharedWork(_shares, source.effort, source.duration);
        for (std::size_t i = 0; i < work.size(); ++i) {
            Amount& amount = _amounts[i];
            amount.hours = work[i] / kSecondsOfHour;
            if (!amount.resource)
                continue;
            const MPPResourceSource& resource = *amount.resource->source;
            amount.cost =
                costOfWork({resource.baselineCostPerHour, resource.baselineCostPerUse}, amount.hours, _shares[i].units);
        }
    }

    // A resource assigned several times has one amount per assignment, in document order.
    void correctAssignment(const MPPAssignment& assignment, const MPPTaskBaseline& ofTask) {
        const MPPResource* resource = assignment.resource.record();
        if (!resource || !assignment.baseline0)
            return;
        const auto first = std::lower_bound(
            _amounts.begin(), _amounts.end(), resource,
            [](const Amount& amount, const MPPResource* sought) { return std::less<>()(amount.resource, sought); });
        if (first == _amounts.end() || first->resource != resource)
            return;
        const auto found = first + first->taken;
        if (found == _amounts.end() || found->resource != resource)
            return;
        ++first->taken;
        assignment.baseline0->start = ofTask.start;
        assignment.baseline0->finish = ofTask.finish;
        assignment.baseline0->work = found->hours;
        assignment.baseline0->cost = found->cost;
    }

    ResourcesById _resources;
    std::vector<WorkShare> _shares; ///< of the current task, in the order of the amounts
    std::vector<Amount> _amounts;
};

// From the last task to the first, so that a summary is complete before its parent adds it. A summary's effort in the
// baseline is the effort of all its tasks.
void addToParents(MPPProject& project) {
    for (auto it = project.tasks.rbegin(); it != project.tasks.rend(); ++it) {
        const MPPTask& task = **it;
        const MPPTask* parent = task.parent;
        if (!parent || parent->ID >= task.ID || !parent->baseline0 || !task.baseline0)
            continue;
        const auto& source = parent->source;
        const bool tellsEffort = source && source->baseline && source->baseline->effort > 0;
        if (!tellsEffort)
            parent->baseline0->work += task.baseline0->work;
        parent->baseline0->cost += task.baseline0->cost;
    }
}

void addToResources(MPPProject& project) {
    for (const auto& assignment : project.assignments) {
        const MPPResource* resource = assignment->resource.record();
        if (!resource || !resource->baseline0 || !assignment->baseline0)
            continue;
        resource->baseline0->work += assignment->baseline0->work;
        resource->baseline0->cost += assignment->baseline0->cost / kHundredths;
    }
}

} // namespace

void correctBaselines(MPPProject& project, const AssignmentIndex& assignments) {
    BaselinePass pass(project);
    pass.correct(project, assignments.ofTask(project));
    for (const auto& task : project.tasks)
        pass.correct(*task, assignments.ofTask(*task));
    addToParents(project);
    addToResources(project);
}

} // namespace brackwater
