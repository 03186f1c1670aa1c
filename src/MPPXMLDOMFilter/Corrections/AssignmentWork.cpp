#include "MPPXMLDOMFilter/Corrections/AssignmentWork.h"

#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Corrections/SharedWork.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

namespace {

constexpr double kSecondsOfHour = 3600.0;
constexpr double kFullUnits = 10000.0;
constexpr std::uint16_t kPerUnitOfMaterial = 8;

MPPResourceKind kindOf(const MPPResource& resource) {
    if (resource.source)
        return resource.source->kind;
    return resource.getResourceType() == 0 ? MPPResourceKind::Staff : MPPResourceKind::Material;
}

void setWork(MPPAssignment& assignment, double hours) {
    assignment.work = hours;
    assignment.actualWork = 0;
    assignment.remainingWork = hours;
}

// A task without workers has the source's effort or none; in that case the placeholder's work is the task's duration.
double workOfPlaceholder(MPPAssignment& placeholder, const MPPTask& task) {
    const double effort = task.source ? task.source->effort : 0;
    setWork(placeholder, (effort > 0 ? effort : task.duration) / kSecondsOfHour);
    return effort / kSecondsOfHour;
}

void correctWorkOfTask(MPPTask& task, std::span<MPPAssignment* const> assignments, std::vector<WorkShare>& shares) {
    shares.clear();
    for (const MPPAssignment* assignment : assignments)
        if (const MPPResource* resource = assignment->resource.record())
            shares.push_back({kindOf(*resource), assignment->assignmentUnits / kFullUnits});
    const std::vector<double> work = sharedWork(shares, task.source ? task.source->effort : 0, task.duration);

    double sum = 0;
    std::size_t place = 0;
    for (MPPAssignment* assignment : assignments) {
        const MPPResource* resource = assignment->resource.record();
        if (!resource) {
            sum += workOfPlaceholder(*assignment, task);
            continue;
        }
        const bool isMaterial = shares[place].kind == MPPResourceKind::Material;
        setWork(*assignment, isMaterial ? shares[place].units : work[place] / kSecondsOfHour);
        sum += isMaterial ? 0 : assignment->work;
        ++place;
    }
    task.work = sum;
    task.actualWork = 0;
    task.remainingWork = sum;
}

} // namespace

void correctWork(MPPProject& project, const AssignmentIndex& assignments) {
    for (const auto& resource : project.resources)
        if (resource->getResourceType() != 0)
            resource->rateUnit = kPerUnitOfMaterial;
    for (const auto& assignment : project.assignments) {
        assignment->unitOfMaterial = kFullUnits;
        assignment->row48 = assignment->resource.isUnset() ? 0 : 1;
    }
    std::vector<WorkShare> shares;
    correctWorkOfTask(project, assignments.ofTask(project), shares);
    for (const auto& task : project.tasks)
        correctWorkOfTask(*task, assignments.ofTask(*task), shares);
}

} // namespace brackwater
