#include "MPPXMLDOMFilter/Corrections/Progress.h"

#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Corrections/ProgressPath.h"
#include "MPPXMLDOMFilter/Corrections/WorkingTimeline.h"
#include "MPPXMLDOMFilter/Corrections/WrittenAmounts.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <algorithm>

namespace brackwater {

namespace {

class ProgressPass {
public:
    ProgressPass(const MPPProject& project, const AssignmentIndex& assignments)
        : _standardCalendar(project.standardCalendar.get()), _assignments(assignments) {}

    void correct(MPPTask& task) {
        const double done = task.source ? task.source->completion : 0;
        const auto assignments = _assignments.ofTask(task);
        std::optional<ProgressMoments> moments;
        for (MPPAssignment* assignment : assignments) {
            correctAssignment(*assignment, task, done);
            takeEarlier(moments, *assignment);
        }
        if (!task.isSummary)
            correctTask(task, done, moments);
    }

private:
    void correctAssignment(MPPAssignment& assignment, const MPPTask& task, double done) {
        assignment.actualWork = assignment.work * done;
        assignment.remainingWork = assignment.work - assignment.actualWork;
        assignment.stopDate = assignment.resumeDate = assignment.startDate;
        if (!(done > 0))
            return;
        const ProgressPath path(task, lineOf(assignment));
        if (path.isEmpty())
            return;
        const ProgressMoments moments = path.momentsOf(done);
        assignment.stopDate = moments.stop;
        assignment.resumeDate = moments.resume;
    }

    // A task stops where its first worker stops; material does not count.
    static void takeEarlier(std::optional<ProgressMoments>& moments, const MPPAssignment& assignment) {
        const MPPResource* resource = assignment.resource.record();
        const bool isMaterial = resource && resource->getResourceType() != 0;
        if (isMaterial || !assignment.stopDate || !assignment.resumeDate)
            return;
        if (!moments || *assignment.stopDate < moments->stop)
            moments = {*assignment.stopDate, *assignment.resumeDate};
    }

    void correctTask(MPPTask& task, double done, std::optional<ProgressMoments> moments) {
        const double duration = durationInSteps(task.duration);
        task.actualDuration = done >= 1 ? duration : durationInSteps(task.duration * done);
        task.remainingDuration = duration - task.actualDuration;
        task.actualWork = task.work * done;
        task.remainingWork = task.work - task.actualWork;
        task.percentageComplete = task.percentageWorkComplete = wholePercent(done);
        if (!(done > 0))
            return;
        const ProgressPath path(task, lineOfTask(task));
        if (path.isEmpty())
            return;
        if (!moments)
            moments = path.momentsOf(done);
        task.stop = moments->stop;
        task.resume = moments->resume;
        task.actualStart = task.startDate;
        if (done >= 1)
            task.actualFinish = task.endDate;
        task.progressPoints = path.pointsOf(done);
    }

    // The calendar of the first worker, for as long as they work.
    const WorkingTimeline* lineOfTask(const MPPTask& task) {
        for (const MPPAssignment* assignment : _assignments.ofTask(task))
            if (const MPPResource* resource = assignment->resource.record(); resource && !resource->getResourceType())
                return lineOf(*assignment);
        return _standardCalendar ? &_lines.ofCalendar(*_standardCalendar) : nullptr;
    }

    const WorkingTimeline* lineOf(const MPPAssignment& assignment) {
        const MPPResource* resource = assignment.resource.record();
        const MPPCalendar* own = resource ? resource->calendar.pointer().get() : nullptr;
        const MPPCalendar* calendar = own ? own : _standardCalendar;
        return calendar ? &_lines.ofCalendar(*calendar) : nullptr;
    }

    const MPPCalendar* _standardCalendar;
    const AssignmentIndex& _assignments;
    WorkingTimelines _lines;
};

} // namespace

void correctProgress(MPPProject& project, const AssignmentIndex& assignments) {
    ProgressPass pass(project, assignments);
    pass.correct(project);
    for (const auto& task : project.tasks)
        pass.correct(*task);
}

} // namespace brackwater
