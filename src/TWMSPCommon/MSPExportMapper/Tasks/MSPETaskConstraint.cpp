#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskConstraint.h"

#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"

namespace brackwater {

namespace {

using Info = MSPEScheduledTaskInfo;
using Constraint = MSPETaskConstraint;
using Type = MSPETaskConstraint::Type;

Constraint noEarlier(const Info::Bound& bound) {
    return {bound.constrainsTaskEnd ? Type::FinishNoEarlierThan : Type::StartNoEarlierThan, true, bound.date};
}

Constraint noLater(const Info::Bound& bound) {
    return {bound.constrainsTaskEnd ? Type::FinishNoLaterThan : Type::StartNoLaterThan, true, bound.date};
}

bool isScheduledFromStart(const Info& info, bool projectFromStart) {
    switch (info.scheduleType()) {
    case Info::ScheduleType::Asap:
        return true;
    case Info::ScheduleType::Alap:
        return false;
    case Info::ScheduleType::Unset:
        break;
    }
    return projectFromStart;
}

} // namespace

std::optional<MSPETaskConstraint> MSPETaskConstraint::ofTask(const MSPEScheduledTaskInfo& info, bool projectFromStart) {
    const bool fromStart = isScheduledFromStart(info, projectFromStart);

    const auto lockedStart = info.lockedStartDate();
    const auto lockedEnd = info.lockedEndDate();
    if (lockedStart && (fromStart || !lockedEnd))
        return Constraint{Type::MustStartOn, true, lockedStart};
    if (lockedEnd)
        return Constraint{Type::MustFinishOn, true, lockedEnd};

    const Info::Bound& earlier = info.noEarlierThan();
    const Info::Bound& later = info.noLaterThan();
    if (earlier.date && (fromStart || !later.date))
        return noEarlier(earlier);
    if (later.date)
        return noLater(later);

    if (info.scheduleType() == Info::ScheduleType::Asap)
        return Constraint{Type::AsSoonAsPossible, false, {}};
    if (info.scheduleType() == Info::ScheduleType::Alap)
        return Constraint{Type::AsLateAsPossible, false, {}};
    if (info.leveledStart() && info.taskType() != Info::TaskType::Group)
        return Constraint{fromStart ? Type::StartNoEarlierThan : Type::StartNoLaterThan, true, info.startDate()};
    return std::nullopt;
}

} // namespace brackwater
