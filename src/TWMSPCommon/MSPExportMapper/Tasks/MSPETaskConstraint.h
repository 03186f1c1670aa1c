#pragma once

#include "Platform/Time/Date.h"

#include <optional>

namespace brackwater {

class MSPEScheduledTaskInfo;

/// The target's constraint of a task. The values are the target's own.
struct MSPETaskConstraint {
    enum class Type {
        AsSoonAsPossible = 0,
        AsLateAsPossible = 1,
        MustStartOn = 2,
        MustFinishOn = 3,
        StartNoEarlierThan = 4,
        StartNoLaterThan = 5,
        FinishNoEarlierThan = 6,
        FinishNoLaterThan = 7
    };

    Type type;
    bool hasDate = false;
    std::optional<Date> date;

    /// Nothing if the task has no constraint. Locks take precedence over bounds, bounds over the schedule type, and a
    /// levelled start counts only if there are none of them.
    [[nodiscard]] static std::optional<MSPETaskConstraint> ofTask(const MSPEScheduledTaskInfo& info,
                                                                  bool projectFromStart);
};

} // namespace brackwater
