#include "MPPXMLDOMFilter/Corrections/SummaryTotals.h"

#include "MPPXMLDOMFilter/Corrections/WrittenAmounts.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <algorithm>

namespace brackwater {

namespace {

// Facts about the tasks below a summary besides its own fields.
struct Below {
    double duration = 0; ///< of the leaves
    double actualDuration = 0;
    bool isStarted = false;
    bool isFinished = true;
    std::optional<Date> actualStart;
    std::optional<Date> stop;
    std::optional<Date> resume;
};

void takeEarlier(std::optional<Date>& earliest, const std::optional<Date>& date) {
    if (date && (!earliest || *date < *earliest))
        earliest = date;
}

// Sums of parts miss the whole by rounding errors: all done is all done.
double share(double part, double whole) {
    constexpr double kNearlyOne = 1.0 - 1e-9;
    const double value = whole > 0 ? part / whole : 0;
    return value > kNearlyOne ? 1.0 : value;
}

class SummaryPass {
public:
    explicit SummaryPass(MPPProject& project) : _project(project), _below(project.tasks.size() + 1) {}

    // From the last task to the first: a summary is complete before its parent adds it.
    void run() {
        for (auto it = _project.tasks.rbegin(); it != _project.tasks.rend(); ++it) {
            finish(**it);
            MPPTask* parent = (*it)->parent;
            if (parent && parent->ID < (*it)->ID)
                addToParent(**it, *parent);
        }
        finish(_project);
    }

private:
    void finish(MPPTask& task) const {
        const Below& below = _below[task.ID];
        if (!task.isSummary)
            return;
        // Milestones have no duration: the last percent is theirs.
        const double done = below.isFinished ? 1.0 : std::min(share(below.actualDuration, below.duration), 0.99);
        const double fraction = below.isStarted ? done : 0.0;
        const double duration = durationInSteps(task.duration);
        task.actualDuration = fraction >= 1 ? duration : durationInSteps(task.duration * fraction);
        task.remainingDuration = duration - task.actualDuration;
        task.percentageComplete = wholePercent(fraction);
        task.percentageWorkComplete =
            task.work > 0 ? wholePercent(share(task.actualWork, task.work)) : task.percentageComplete;
        task.remainingWork = task.work - task.actualWork;
        task.actualCost += task.fixedCost * fraction;
        task.remainingCost = task.cost - task.actualCost;
        if (!below.isStarted)
            return;
        task.actualStart = below.actualStart;
        task.stop = below.isFinished ? task.endDate : below.stop;
        task.resume = below.isFinished ? task.endDate : below.resume;
        if (below.isFinished)
            task.actualFinish = task.endDate;
    }

    void addToParent(const MPPTask& task, MPPTask& parent) {
        Below& below = _below[parent.ID];
        const Below& own = _below[task.ID];
        below.duration += task.isSummary ? own.duration : task.duration;
        below.actualDuration += task.isSummary ? own.actualDuration : task.actualDuration;
        below.isStarted = below.isStarted || task.actualStart.has_value();
        below.isFinished = below.isFinished && task.actualFinish.has_value();
        takeEarlier(below.actualStart, task.actualStart);
        takeEarlier(below.stop, task.stop ? task.stop : task.startDate);
        takeEarlier(below.resume, task.resume ? task.resume : task.startDate);
        parent.work += task.work;
        parent.actualWork += task.actualWork;
        parent.cost += task.cost;
        parent.actualCost += task.actualCost;
    }

    MPPProject& _project;
    std::vector<Below> _below; ///< by task ID
};

} // namespace

void correctSummaryTotals(MPPProject& project) { SummaryPass(project).run(); }

void correctResourceTotals(MPPProject& project) {
    for (const auto& assignment : project.assignments) {
        MPPResource* resource = assignment->resource.record();
        if (!resource)
            continue;
        MPPResourceTotals& totals = resource->totals;
        totals.work += assignment->work;
        totals.actualWork += assignment->actualWork;
        totals.remainingWork += assignment->remainingWork;
        totals.cost += assignment->cost;
        totals.actualCost += assignment->actualCost;
        totals.remainingCost += assignment->remainingCost;
    }
}

} // namespace brackwater
