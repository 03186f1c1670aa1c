#include "loss-report/TaskParts.h"

#include <array>

namespace brackwater::lossreport {

namespace {

enum ConstraintType : std::uint16_t {
    kAsSoonAsPossible = 0,
    kAsLateAsPossible = 1,
    kMustStart = 2,
    kMustFinish = 3,
    kStartNoEarlier = 4,
    kStartNoLater = 5,
    kFinishNoEarlier = 6,
    kFinishNoLater = 7,
};

/// A date that a planner may fix, and the equivalent constraints.
struct Bound {
    std::string_view name;
    SourceDate SourceTask::*date;
    std::uint16_t constraint, otherConstraint;
    bool mayBeDeadline;
};

constexpr std::array kBounds{
    Bound{"locked start", &SourceTask::lockedStart, kMustStart, kMustStart, false},
    Bound{"locked end", &SourceTask::lockedEnd, kMustFinish, kMustFinish, false},
    Bound{"constraint on the start", &SourceTask::startBound, kStartNoEarlier, kStartNoLater, false},
    Bound{"constraint on the end", &SourceTask::endBound, kFinishNoEarlier, kFinishNoLater, true},
    Bound{"start no earlier than", &SourceTask::startNoEarlier, kStartNoEarlier, kStartNoEarlier, false},
    Bound{"end no earlier than", &SourceTask::endNoEarlier, kFinishNoEarlier, kFinishNoEarlier, false},
    Bound{"start no later than", &SourceTask::startNoLater, kStartNoLater, kStartNoLater, false},
    Bound{"end no later than", &SourceTask::endNoLater, kFinishNoLater, kFinishNoLater, true},
};

std::string constraintOf(const inspect::Task& task) {
    std::string text = inspect::constraintText(task.constraintType);
    return task.constraintDate ? text + " " + inspect::textOf(*task.constraintDate) : text;
}

void compareScheduleType(Comparison& comparison, const Subject& subject, const TaskPair& pair) {
    const std::string_view type = pair.source->scheduleType;
    const bool isLate = type == "alap";
    if (!isLate && type != "asap")
        return;
    // With a constraint on a date, the direction of the whole plan determines the type.
    const bool isTold = pair.file->constraintType == (isLate ? kAsLateAsPossible : kAsSoonAsPossible) ||
                        (pair.file->constraintType > kAsLateAsPossible && isLate == comparison.plan.main.fixedEnd);
    if (!isTold)
        comparison.add(subject, Kind::ScheduleType, "schedule type", std::string(type), constraintOf(*pair.file));
}

} // namespace

void compareConstraint(Comparison& comparison, const TaskPair& pair) {
    const SourceTask& source = *pair.source;
    const inspect::Task& file = *pair.file;
    const Subject subject = subjectOf(source);
    bool isBound = false;
    for (const Bound& bound : kBounds) {
        const SourceDate& date = source.*bound.date;
        if (!date)
            continue;
        isBound = true;
        if (file.constraintType == bound.constraint || file.constraintType == bound.otherConstraint)
            comparison.date(subject, bound.name, date, file.constraintDate, Kind::Constraint);
        else if (bound.mayBeDeadline && file.deadline)
            comparison.date(subject, bound.name, date, file.deadline, Kind::Constraint);
        else
            comparison.add(subject, Kind::Constraint, bound.name, textOf(comparison.wallTime(date)),
                           constraintOf(file));
    }
    compareScheduleType(comparison, subject, pair);
    if (source.leveledStart)
        comparison.add(subject, Kind::LeveledStart, "start set by levelling",
                       textOf(comparison.wallTime(source.leveledStart)), constraintOf(file));
    else if (!isBound && source.scheduleType.empty() && file.constraintType > kAsLateAsPossible)
        comparison.add(subject, Kind::Unexplained, "constraint", "none", constraintOf(file));
}

} // namespace brackwater::lossreport
