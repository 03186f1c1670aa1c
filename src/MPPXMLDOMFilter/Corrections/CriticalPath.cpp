#include "MPPXMLDOMFilter/Corrections/CriticalPath.h"

#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Corrections/WorkingTimeline.h"
#include "MPPXMLDOMFilter/Corrections/WrittenAmounts.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace brackwater {

namespace {

constexpr double kUnlimited = std::numeric_limits<double>::infinity();
constexpr double kWholePercent = 100.0;
constexpr double kSecondsOfLag = 6.0; // a tenth of a minute

// MSPDI numbers of constraints and of links.
constexpr int kMustStartOn = 2, kMustFinishOn = 3, kStartNoLaterThan = 5, kFinishNoLaterThan = 7;
constexpr int kFinishToStart = 1, kStartToFinish = 2, kStartToStart = 3;

bool isStarted(const MPPTask& task) { return task.actualStart.has_value(); }
bool isDone(const MPPTask& task) { return task.actualFinish.has_value(); }

/// From the last tasks to the first. A task's limit comes from its successors and from its parent's limit; its late
/// dates come from its limit, those of a summary from its tasks.
class CriticalPathPass {
public:
    CriticalPathPass(MPPProject& project, const AssignmentIndex& assignments)
        : _project(project), _assignments(assignments), _places(project.tasks.size() + 1) {}

    void run() {
        for (const auto& task : _project.tasks)
            addTask(*task);
        for (const auto& link : _project.constraints)
            addLink(*link);
        for (Place& place : _places)
            if (place.task != nullptr && place.waitsForLimit == 0)
                _open.push_back(&place);
        while (!_open.empty()) {
            Place* place = _open.back();
            _open.pop_back();
            setLimit(*place);
        }
    }

private:
    struct Place;
    struct Link {
        const MPPConstraint* constraint;
        const Place* successor;
    };
    struct Place {
        MPPTask* task = nullptr; ///< null if it has no dates
        const WorkingTimeline* line = nullptr;
        Place* parent = nullptr;
        std::vector<Place*> children;
        std::vector<Link> links; ///< to successors
        std::vector<Place*> predecessors;
        std::size_t waitsForLimit = 0; ///< successors without late dates, and a parent without a limit
        std::size_t childrenLeft = 0;  ///< without late dates
        double slack = 0;              ///< seconds
        Date limit{0};                 ///< of the finish; set for a summary
    };

    void addTask(MPPTask& task) {
        if (!task.startDate || !task.endDate)
            return;
        Place& place = _places[task.ID];
        place.task = &task;
        place.line = &lineOf(task);
        _finish = std::max(_finish, *task.endDate);
        Place* parent = task.parent != nullptr && task.parent->ID < task.ID ? &_places[task.parent->ID] : nullptr;
        if (parent == nullptr || parent->task == nullptr)
            return;
        place.parent = parent;
        ++place.waitsForLimit;
        parent->children.push_back(&place);
        ++parent->childrenLeft;
    }

    void addLink(const MPPConstraint& constraint) {
        Place* predecessor = placeOf(constraint.task1);
        Place* successor = placeOf(constraint.task2);
        if (predecessor == nullptr || successor == nullptr)
            return;
        predecessor->links.push_back({&constraint, successor});
        ++predecessor->waitsForLimit;
        successor->predecessors.push_back(predecessor);
    }

    Place* placeOf(const TaskReference& reference) {
        const MPPTask* task = reference.record();
        if (task == nullptr || task->ID >= _places.size() || _places[task->ID].task != task)
            return nullptr;
        return &_places[task->ID];
    }

    const WorkingTimeline& lineOf(const MPPTask& task) {
        for (const MPPAssignment* assignment : _assignments.ofTask(task)) {
            const MPPResource* resource = assignment->resource.record();
            const MPPCalendar* own = resource && !resource->getResourceType() ? resource->calendar.record() : nullptr;
            if (own)
                return _lines.ofCalendar(*own);
        }
        const MPPCalendar* own = task.calendar.record();
        return _lines.ofCalendar(own ? *own : *_project.standardCalendar);
    }

    void setLimit(Place& place) {
        const MPPTask& task = *place.task;
        double slack = std::min(slackBetween(place, *task.endDate, _finish), slackOfConstraint(place));
        if (place.parent)
            slack = std::min(slack, slackBetween(place, *task.endDate, place.parent->limit));
        for (const Link& link : place.links) {
            const MPPTaskSlack& late = *link.successor->task->slack;
            slack = std::min(slack, slackOfLink(place, *link.constraint, *late.lateStart, *late.lateFinish));
        }
        place.slack = durationInSteps(std::max(slack, 0.0));
        if (place.children.empty())
            return setLateDates(place);
        place.limit = moved(place, *task.endDate, place.slack);
        for (Place* child : place.children)
            countDown(*child);
    }

    void countDown(Place& place) {
        if (--place.waitsForLimit == 0)
            _open.push_back(&place);
    }

    // Continues with the summaries that are complete by this.
    void setLateDates(Place& leaf) {
        for (Place* place = &leaf; place != nullptr; place = place->parent) {
            place->task->slack =
                std::make_unique<MPPTaskSlack>(place == &leaf ? slackOfLeaf(leaf) : slackOfSummary(*place));
            for (Place* predecessor : place->predecessors)
                countDown(*predecessor);
            if (place->parent && --place->parent->childrenLeft > 0)
                return;
        }
    }

    static MPPTaskSlack slackOfLeaf(const Place& place) {
        const MPPTask& task = *place.task;
        MPPTaskSlack slack{task.startDate, task.endDate, 0, 0, 0, false};
        if (isDone(task))
            return slack;
        slack.isCritical = !(place.slack > 0);
        slack.finish = place.slack;
        slack.lateFinish = moved(place, *task.endDate, place.slack);
        if (!isStarted(task) && place.slack > 0) {
            slack.start = place.slack;
            // A task that takes time starts in a working range, not at the end of one.
            const Date moment = moved(place, *task.startDate, place.slack);
            slack.lateStart = std::min(place.line->nextWorkingMoment(moment).value_or(moment), *slack.lateFinish);
        }
        slack.free = place.slack;
        for (const Link& link : place.links) {
            const MPPTask& next = *link.successor->task;
            const double free = slackOfLink(place, *link.constraint, *next.startDate, *next.endDate);
            slack.free = std::clamp(durationInSteps(free), 0.0, slack.free);
        }
        return slack;
    }

    static MPPTaskSlack slackOfSummary(const Place& place) {
        const MPPTask& task = *place.task;
        MPPTaskSlack slack = *place.children.front()->task->slack;
        for (const Place* child : place.children) {
            const MPPTaskSlack& below = *child->task->slack;
            slack.lateStart = std::min(slack.lateStart, below.lateStart);
            slack.lateFinish = std::max(slack.lateFinish, below.lateFinish);
            slack.isCritical = slack.isCritical || below.isCritical;
        }
        const auto upTo = [&place](Date from, Date to) {
            return durationInSteps(std::max(slackBetween(place, from, to), 0.0));
        };
        slack.start = upTo(*task.startDate, *slack.lateStart);
        slack.free = slack.finish = upTo(*task.endDate, *slack.lateFinish);
        return slack;
    }

    /// Negative if `to` lies before `from`.
    static double slackBetween(const Place& place, Date from, Date to) {
        return to < from ? -place.line->workingSecondsBetween(to, from) : place.line->workingSecondsBetween(from, to);
    }

    static Date moved(const Place& place, Date date, double slack) {
        return slack > 0 ? place.line->advance(date, slack).value_or(date) : date;
    }

    static double slackOfConstraint(const Place& place) {
        const MPPTask& task = *place.task;
        double slack = kUnlimited;
        if (task.deadline)
            slack = slackBetween(place, *task.endDate, *task.deadline);
        if (!task.constraintDate)
            return slack;
        if (task.constraintType == kMustFinishOn || task.constraintType == kFinishNoLaterThan)
            slack = std::min(slack, slackBetween(place, *task.endDate, *task.constraintDate));
        if ((task.constraintType == kMustStartOn || task.constraintType == kStartNoLaterThan) && !isStarted(task))
            slack = std::min(slack, slackBetween(place, *task.startDate, *task.constraintDate));
        return slack;
    }

    /// Up to where the link lets the task move if its successor has these dates.
    static double slackOfLink(const Place& place, const MPPConstraint& link, Date successorStart,
                              Date successorFinish) {
        const MPPTask& task = *place.task;
        const bool holdsStart = link.constraintType == kStartToFinish || link.constraintType == kStartToStart;
        if (holdsStart && isStarted(task))
            return kUnlimited;
        const bool byStart = link.constraintType == kFinishToStart || link.constraintType == kStartToStart;
        const double lag = link.isPercentage ? task.duration * link.lag / kWholePercent : link.lag * kSecondsOfLag;
        return slackBetween(place, holdsStart ? *task.startDate : *task.endDate,
                            byStart ? successorStart : successorFinish) -
               lag;
    }

    MPPProject& _project;
    const AssignmentIndex& _assignments;
    WorkingTimelines _lines;
    std::vector<Place> _places; ///< by task ID
    std::vector<Place*> _open;  ///< whose limit can be set
    Date _finish{-kUnlimited};  ///< of the project
};

} // namespace

void findCriticalPath(MPPProject& project, const AssignmentIndex& assignments) {
    if (project.standardCalendar)
        CriticalPathPass(project, assignments).run();
}

} // namespace brackwater
