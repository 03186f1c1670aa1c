#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"

#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/Saturating.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

enum class Child : std::size_t {
    LeveledStart,
    StartDate,
    EndDate,
    Duration,
    ScheduleType,
    Priority,
    Effort,
    EffortDone,
    Type,
    CompletionPercentage,
    LockedStartDate,
    LockedEndDate,
    StartNoEarlierThan,
    EndNoEarlierThan,
    StartNoLaterThan,
    EndNoLaterThan,
    StartConstraintDate,
    EndConstraintDate,
    Recalculate,
    PrerequisiteTask,
    ChildTask
};

constexpr NameTable kChildNames(std::array<std::string_view, 21>{"leveled-start",
                                                                 "start-date",
                                                                 "end-date",
                                                                 "duration",
                                                                 "schedule-type",
                                                                 "priority",
                                                                 "effort",
                                                                 "effort-done",
                                                                 "type",
                                                                 "completion-percentage",
                                                                 "locked-start-date",
                                                                 "locked-end-date",
                                                                 "start-no-earlier-than",
                                                                 "end-no-earlier-than",
                                                                 "start-no-later-than",
                                                                 "end-no-later-than",
                                                                 "start-constraint-date",
                                                                 "end-constraint-date",
                                                                 "recalculate",
                                                                 "prerequisite-task",
                                                                 "child-task"});

using Children = MSPEChildElements<Child, kChildNames.size()>;

using Info = MSPEScheduledTaskInfo;

std::optional<Date> dateFromZelbText(std::string_view text) {
    const auto mspdi = MSPIUtilities::zelbToMspdiDateTime(text);
    return mspdi ? MSPIUtilities::mspdiToMppDateTime(*mspdi) : std::nullopt;
}

std::optional<Date> optionalDate(const Children& children, Child name) {
    const auto text = children.onlyText(name);
    return text ? dateFromZelbText(*text) : std::nullopt;
}

std::optional<Date> requiredDate(const Children& children, Child name) {
    const auto text = children.onlyText(name);
    assertThat(text.has_value(), "Task element '{}' not found.", kChildNames[static_cast<std::size_t>(name)]);
    return dateFromZelbText(*text);
}

double requiredDuration(const Children& children) {
    const auto duration = children.onlyNumber(Child::Duration);
    assertThat(duration.has_value(), "Task element 'duration' not found.");
    return *duration;
}

Info::TaskType taskTypeFromText(std::optional<std::string_view> text) {
    if (text == "milestone")
        return Info::TaskType::Milestone;
    if (text == "group")
        return Info::TaskType::Group;
    if (text == "hammock")
        return Info::TaskType::Hammock;
    return Info::TaskType::Task;
}

Info::ScheduleType scheduleTypeFromText(std::optional<std::string_view> text) {
    if (text == "asap")
        return Info::ScheduleType::Asap;
    if (text == "alap")
        return Info::ScheduleType::Alap;
    return Info::ScheduleType::Unset;
}

Info::Recalculate recalculateFromText(std::optional<std::string_view> text) {
    if (text == "effort")
        return Info::Recalculate::Effort;
    if (text == "units")
        return Info::Recalculate::Units;
    return Info::Recalculate::Duration;
}

Info::LinkKind linkKindFromText(std::optional<std::string_view> text) {
    if (text == "SF")
        return Info::LinkKind::StartFinish;
    if (text == "SS")
        return Info::LinkKind::StartStart;
    if (text == "FF")
        return Info::LinkKind::FinishFinish;
    return Info::LinkKind::FinishStart;
}

// A bound from the first of its two elements that exists; nothing if neither does.
std::optional<Info::Bound> boundFromElements(const Children& children, Child start, Child end) {
    if (const auto text = children.onlyText(start))
        return Info::Bound{dateFromZelbText(*text), false};
    if (const auto text = children.onlyText(end))
        return Info::Bound{dateFromZelbText(*text), true};
    return std::nullopt;
}

Info::Prerequisite prerequisiteFromElement(XMLElement element) {
    Info::Prerequisite prerequisite;
    prerequisite.predecessorId = element.attributeForName("idref");
    prerequisite.externalReference = element.attributeForName("external");
    prerequisite.kind = linkKindFromText(element.attributeView("kind"));

    Error error;
    const bool isDependency = boolValueForXQuery(element, "is-resource-dependency", &error);
    prerequisite.isResourceDependency = isDependency && !error;

    if (const auto lead = element.lastObjectForXQuery("lead-time"); lead.count == 1) {
        std::string buffer;
        prerequisite.lead = doubleValue(lead.last->textView(buffer));
        prerequisite.leadIsPercent = lead.last->attributeView("is-percentage") == "true";
    }
    return prerequisite;
}

std::string shown(const std::optional<Date>& date) { return MSPIUtilities::mppToZelbDateTime(date).value_or("(null)"); }

} // namespace

MSPEScheduledTaskInfo::MSPEScheduledTaskInfo(XMLElement zelbTask) {
    const Children children(zelbTask, kChildNames);

    _leveledStart = optionalDate(children, Child::LeveledStart);
    _startDate = requiredDate(children, Child::StartDate);
    _endDate = requiredDate(children, Child::EndDate);
    _duration = requiredDuration(children);
    auto id = zelbTask.attributeForName("id");
    assertThat(id.has_value(), "Task attribute 'id' not found.");
    _uid = std::move(*id);
    _scheduleType = scheduleTypeFromText(children.onlyText(Child::ScheduleType));
    _priority = children.onlyInteger(Child::Priority).value_or(0);
    _effort = static_cast<double>(children.onlyInteger(Child::Effort).value_or(0));
    _effortDone = static_cast<double>(children.onlyInteger(Child::EffortDone).value_or(0));
    _taskType = taskTypeFromText(children.onlyText(Child::Type));
    _completionPercentage = children.onlyNumber(Child::CompletionPercentage).value_or(0.0);
    _lockedStartDate = optionalDate(children, Child::LockedStartDate);
    _lockedEndDate = optionalDate(children, Child::LockedEndDate);
    const auto noEarlier = boundFromElements(children, Child::StartNoEarlierThan, Child::EndNoEarlierThan);
    const auto noLater = boundFromElements(children, Child::StartNoLaterThan, Child::EndNoLaterThan);
    // A constraint date overwrites both bounds.
    const auto constraint = boundFromElements(children, Child::StartConstraintDate, Child::EndConstraintDate);
    _noEarlierThan = constraint.value_or(noEarlier.value_or(Bound{}));
    _noLaterThan = constraint.value_or(noLater.value_or(Bound{}));
    _recalculate = recalculateFromText(children.onlyText(Child::Recalculate));

    if (children.has(Child::PrerequisiteTask)) {
        _prerequisites.reserve(children.count(Child::PrerequisiteTask));
        forEachChildElement(zelbTask, "prerequisite-task",
                            [this](XMLElement element) { _prerequisites.push_back(prerequisiteFromElement(element)); });
    }
    if (_taskType == TaskType::Group && children.has(Child::ChildTask)) {
        forEachChildElement(zelbTask, "child-task", [this](XMLElement element) {
            if (auto childId = element.attributeForName("idref"))
                _childTaskUIDs.push_back(std::move(*childId));
        });
    }
}

double MSPEScheduledTaskInfo::percentageComplete() const {
    double value = 0.0;
    if (_effort > 0 && _effortDone > 0)
        value = _effortDone / _effort;
    else if (_completionPercentage > 0)
        value = _completionPercentage;
    assertThat(value >= 0.0 && value <= 1.0, "Incorrect value of percentComplete ({:f}). Must be from 0.0 to 1.0.",
               value);
    return value;
}

std::int32_t MSPEScheduledTaskInfo::percentComplete() const {
    return saturatingCut<std::int32_t>(percentageComplete() * 100);
}

std::string MSPEScheduledTaskInfo::description() const {
    return fmt::format("<MSPEScheduledTaskInfo> uid='{}' taskType={} scheduleType={} startDate={} endDate={}", _uid,
                       static_cast<std::int32_t>(_taskType), static_cast<std::int32_t>(_scheduleType),
                       shown(_startDate), shown(_endDate));
}

} // namespace brackwater
