#pragma once

#include "Platform/Time/Date.h"

#include <optional>
#include <string>

namespace brackwater {

class MSPEScheduledTaskInfo;

/// A task's start and finish as texts in the source's and the target's format. An instant is converted to the source's
/// format and from there to the target's, like all dates of tasks and assignments. A missing date has no texts.
struct MSPETaskDates {
    explicit MSPETaskDates(const MSPEScheduledTaskInfo& info);

    std::optional<std::string> zelbStart;
    std::optional<std::string> zelbFinish;
    std::optional<std::string> mspdiStart;
    std::optional<std::string> mspdiFinish;
};

/// The same two conversions for any date.
[[nodiscard]] std::optional<std::string> mspdiTextOfDate(std::optional<Date> date);

} // namespace brackwater
