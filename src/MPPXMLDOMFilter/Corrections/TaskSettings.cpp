#include "MPPXMLDOMFilter/Corrections/TaskSettings.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

namespace {

constexpr std::int32_t kFixedDuration = 1;

void markAsSummary(MPPTask& task) {
    task.isSummary = true;
    task.effortDriven = false;
    task.taskType = kFixedDuration;
}

} // namespace

void correctSummaryMarks(MPPProject& project) {
    if (!project.tasks.empty())
        markAsSummary(project);
    for (const auto& task : project.tasks)
        if (task->parent)
            markAsSummary(*task->parent);
}

void correctTaskSettings(MPPProject& project) {
    const Date now = Date::now();
    project.createDate = now;
    for (const auto& task : project.tasks) {
        task->createDate = now;
        task->ignoreResourceCalendar = false;
        if (!task->source)
            continue;
        task->effortDriven = task->source->isEffortDriven && !task->isSummary;
        task->deadline = task->source->deadline;
    }
}

} // namespace brackwater
