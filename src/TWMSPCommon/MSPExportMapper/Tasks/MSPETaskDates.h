#pragma once

#include "Platform/Time/Date.h"

#include <optional>
#include <string>

namespace brackwater {

class MSPEScheduledTaskInfo;

/// A task's start and finish as texts, the source's form and the target's. They go from the instant to the source's
/// form and from there to the target's, as all dates of tasks and assignments do. A missing date has no texts.
struct MSPETaskDates {
    explicit MSPETaskDates(const MSPEScheduledTaskInfo& info);

    std::optional<std::string> zelbStart;
    std::optional<std::string> zelbFinish;
    std::optional<std::string> mspdiStart;
    std::optional<std::string> mspdiFinish;
};

/// The same two steps for any date.
[[nodiscard]] std::optional<std::string> mspdiTextOfDate(std::optional<Date> date);

} // namespace brackwater
