#include "MPPXMLDOMFilter/Corrections/Costs.h"

#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Corrections/ResourceRates.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

namespace {

void correctCostOfAssignment(MPPAssignment& assignment, double done) {
    const MPPResource* resource = assignment.resource.record();
    if (!resource)
        return;
    const ResourceRates rates{resource->standartRate, resource->costPerUse, resource->getResourceType() != 0};
    assignment.cost = costOfWork(rates, assignment.work, assignment.assignmentUnits / 10000.0);
    assignment.actualCost = assignment.cost * done;
    assignment.remainingCost = assignment.cost - assignment.actualCost;
}

void correctCostOfTask(MPPTask& task, std::span<MPPAssignment* const> assignments) {
    const double done = task.source ? task.source->completion : 0;
    task.cost = task.fixedCost;
    task.actualCost = task.isSummary ? 0 : task.fixedCost * done;
    for (MPPAssignment* assignment : assignments) {
        correctCostOfAssignment(*assignment, done);
        task.cost += assignment->cost;
        task.actualCost += assignment->actualCost;
    }
    task.remainingCost = task.cost - task.actualCost;
}

} // namespace

void correctCosts(MPPProject& project, const AssignmentIndex& assignments) {
    correctCostOfTask(project, assignments.ofTask(project));
    for (const auto& task : project.tasks)
        correctCostOfTask(*task, assignments.ofTask(*task));
}

} // namespace brackwater
