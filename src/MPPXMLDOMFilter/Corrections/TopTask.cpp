#include "MPPXMLDOMFilter/Corrections/TopTask.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

void keepTopTask(MPPProject& project) {
    project.rowIsATasks = true;
    if (project.topTask == nullptr)
        return;
    MPPTask& top = *project.topTask;
    project.source = std::move(top.source);
    project.notes = top.notes;
    project.estimated = top.estimated;
    project.priority = top.priority;
    project.constraintType = top.constraintType;
    project.constraintDate = top.constraintDate;
    project.fixedCost = top.fixedCost;
    if (!top.baselines.empty())
        project.baseline0 = top.baselines.front();
}

} // namespace brackwater
