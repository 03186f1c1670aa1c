#pragma once

#include "Platform/Time/Date.h"
#include "Platform/Xml/XMLElement.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// The parsed form of one `task` element of the source, parsed once for all mappers that need it. Durations and efforts
/// are in seconds.
class MSPEScheduledTaskInfo {
public:
    enum class TaskType : std::int32_t { Task = 0, Milestone = 1, Group = 2, Hammock = 3 };
    enum class ScheduleType : std::int32_t { Unset = 0, Asap = 1, Alap = 2 };
    enum class Recalculate : std::int32_t { Duration = 0, Effort = 1, Units = 2 };
    enum class LinkKind : std::int32_t { FinishStart = 0, StartFinish = 1, StartStart = 2, FinishFinish = 3 };

    struct Prerequisite {
        std::optional<std::string> predecessorId; ///< raw source id
        std::optional<std::string> externalReference;
        LinkKind kind = LinkKind::FinishStart;
        bool isResourceDependency = false;
        double lead = 0; ///< seconds, or a fraction of the predecessor
        bool leadIsPercent = false;
    };

    /// A bound on the task's start or end.
    struct Bound {
        std::optional<Date> date;
        bool constrainsTaskEnd = false;
    };

    /// Raises if `start-date`, `end-date`, `duration` or the id is missing.
    explicit MSPEScheduledTaskInfo(XMLElement zelbTask);

    [[nodiscard]] std::optional<Date> startDate() const noexcept { return _startDate; }
    [[nodiscard]] std::optional<Date> endDate() const noexcept { return _endDate; }
    /// The source's id ("t12").
    [[nodiscard]] const std::string& uid() const noexcept { return _uid; }
    [[nodiscard]] TaskType taskType() const noexcept { return _taskType; }
    [[nodiscard]] ScheduleType scheduleType() const noexcept { return _scheduleType; }
    [[nodiscard]] std::int64_t priority() const noexcept { return _priority; }
    [[nodiscard]] double effort() const noexcept { return _effort; }
    [[nodiscard]] double effortDone() const noexcept { return _effortDone; }
    [[nodiscard]] double duration() const noexcept { return _duration; }
    /// A fraction, as in the source.
    [[nodiscard]] double completionPercentage() const noexcept { return _completionPercentage; }
    [[nodiscard]] std::optional<Date> leveledStart() const noexcept { return _leveledStart; }
    [[nodiscard]] std::optional<Date> lockedStartDate() const noexcept { return _lockedStartDate; }
    [[nodiscard]] std::optional<Date> lockedEndDate() const noexcept { return _lockedEndDate; }
    [[nodiscard]] const Bound& noEarlierThan() const noexcept { return _noEarlierThan; }
    [[nodiscard]] const Bound& noLaterThan() const noexcept { return _noLaterThan; }
    [[nodiscard]] Recalculate recalculate() const noexcept { return _recalculate; }
    [[nodiscard]] const std::vector<Prerequisite>& prerequisites() const noexcept { return _prerequisites; }
    /// Raw ids of the children; only groups have them.
    [[nodiscard]] const std::vector<std::string>& childTaskUIDs() const noexcept { return _childTaskUIDs; }

    /// Progress from 0 to 1. Raises if the source's values give anything else.
    [[nodiscard]] double percentageComplete() const;
    /// The same from 0 to 100, truncated.
    [[nodiscard]] std::int32_t percentComplete() const;

    [[nodiscard]] std::string description() const;

private:
    std::optional<Date> _startDate;
    std::optional<Date> _endDate;
    std::string _uid;
    TaskType _taskType = TaskType::Task;
    ScheduleType _scheduleType = ScheduleType::Unset;
    std::int64_t _priority = 0;
    double _effort = 0;
    double _effortDone = 0;
    double _duration = 0;
    double _completionPercentage = 0;
    std::optional<Date> _leveledStart;
    std::optional<Date> _lockedStartDate;
    std::optional<Date> _lockedEndDate;
    Bound _noEarlierThan;
    Bound _noLaterThan;
    Recalculate _recalculate = Recalculate::Duration;
    std::vector<Prerequisite> _prerequisites;
    std::vector<std::string> _childTaskUIDs;
};

} // namespace brackwater
