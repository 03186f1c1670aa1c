#include "MPPXMLDOMFilter/Corrections/Baselines.h"

#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Corrections/ResourceRates.h"
#include "MPPXMLDOMFilter/Corrections/SharedWork.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <string_view>
#include <unordered_map>

namespace brackwater {

namespace {

constexpr double kSecondsOfHour = 3600.0;
constexpr double kHundredths = 100.0;

// What a baseline has of a task's resources: amounts by the source's resource id. Material has none.
struct BaselineAmounts {
    struct Amount {
        double hours = 0;
        double cost = 0;
    };
    std::unordered_map<std::string_view, Amount> ofResource;
    Amount sum;
};

BaselineAmounts amountsOf(const MPPSourceTaskBaseline& source) {
    std::vector<WorkShare> shares;
    for (const MPPSourceBaselineAssignment& assignment : source.assignments)
        shares.push_back({assignment.kind, assignment.units});
    const std::vector<double> work = sharedWork(shares, source.effort.value_or(0), source.duration.value_or(0));

    BaselineAmounts amounts;
    bool isWorkedOn = false;
    for (std::size_t i = 0; i < shares.size(); ++i) {
        const MPPSourceBaselineAssignment& assignment = source.assignments[i];
        if (assignment.kind == MPPResourceKind::Material)
            continue;
        isWorkedOn = true;
        const double hours = work[i] / kSecondsOfHour;
        const double cost = costOfWork({assignment.costPerHour, assignment.costPerUse, false}, hours, assignment.units);
        amounts.ofResource[assignment.resourceId] = {hours, cost};
        amounts.sum.hours += hours;
        amounts.sum.cost += cost;
    }
    if (!isWorkedOn)
        amounts.sum.hours = source.effort.value_or(0) / kSecondsOfHour;
    return amounts;
}

void correctAssignment(MPPAssignment& assignment, const MPPSourceTaskBaseline& source, const BaselineAmounts& amounts) {
    const MPPResource* resource = assignment.resource.record();
    if (!resource || !resource->source || !assignment.baseline0)
        return;
    const auto found = amounts.ofResource.find(resource->source->id);
    if (found == amounts.ofResource.end())
        return;
    assignment.baseline0->start = source.start;
    assignment.baseline0->finish = source.end;
    assignment.baseline0->work = found->second.hours;
    assignment.baseline0->cost = found->second.cost;
}

void correctTask(MPPTask& task, std::span<MPPAssignment* const> assignments) {
    if (!task.baseline0 || !task.source || !task.source->baseline)
        return;
    const MPPSourceTaskBaseline& source = *task.source->baseline;
    const BaselineAmounts amounts = amountsOf(source);
    task.baseline0->work = amounts.sum.hours;
    task.baseline0->fixedCost = source.staticCost.value_or(0) * kHundredths;
    task.baseline0->cost = task.baseline0->fixedCost + amounts.sum.cost;
    for (MPPAssignment* assignment : assignments)
        correctAssignment(*assignment, source, amounts);
}

// From the last task to the first, so that a summary is complete before its parent takes its amounts. An effort that
// the baseline tells of a summary is that of all its tasks.
void addToParents(MPPProject& project) {
    for (auto it = project.tasks.rbegin(); it != project.tasks.rend(); ++it) {
        const MPPTask& task = **it;
        const MPPTask* parent = task.parent;
        if (!parent || parent->ID >= task.ID || !parent->baseline0 || !task.baseline0)
            continue;
        const auto& source = parent->source;
        const bool tellsEffort = source && source->baseline && source->baseline->effort.value_or(0) > 0;
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
    correctTask(project, assignments.ofTask(project));
    for (const auto& task : project.tasks)
        correctTask(*task, assignments.ofTask(*task));
    addToParents(project);
    addToResources(project);
}

} // namespace brackwater
