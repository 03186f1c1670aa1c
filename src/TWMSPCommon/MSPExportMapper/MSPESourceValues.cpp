#include "TWMSPCommon/MSPExportMapper/MSPESourceValues.h"

#include "Platform/TextReadings.h"
#include "TWMSPCommon/MSPExportMapper/MSPEBaseline.h"
#include "TWMSPCommon/MSPExportMapper/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/MSPEProjectMapper.h"
#include "TWMSPCommon/MSPExportMapper/MSPEScheduledTaskInfo.h"
#include "TWMSPCommon/MSPExportMapper/MSPETaskConstraint.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <array>

namespace brackwater {

namespace {

using Info = MSPEScheduledTaskInfo;
using ConstraintType = MSPETaskConstraint::Type;

enum class Child : std::size_t { StartDate, EndDate, Duration, Effort, StaticCost, Type, CostPerHour, CostPerUse };

constexpr MSPEChildNames kChildNames(std::array<std::string_view, 8>{
    "start-date", "end-date", "duration", "effort", "static-cost", "type", "cost-per-hour", "cost-per-use"});

using Children = MSPEChildElements<Child, kChildNames.size()>;

MPPResourceKind kindFromText(std::optional<std::string_view> type) {
    if (type == "Material")
        return MPPResourceKind::Material;
    return type == "Equipment" ? MPPResourceKind::Equipment : MPPResourceKind::Staff;
}

// A missing or empty attribute counts as one unit.
double unitsOf(XMLElement assignment) {
    std::string buffer;
    const auto text = assignment.attributeView("units", buffer);
    return text && !text->empty() ? doubleValue(*text) : 1.0;
}

double numberOrZero(const Children& children, Child name) {
    const auto text = children.text(name);
    return text ? doubleValue(*text) : 0.0;
}

std::optional<Date> dateOf(const Children& children, Child name) {
    const auto text = children.text(name);
    const auto mspdi = text ? MSPIUtilities::zelbToMspdiDateTime(*text) : std::nullopt;
    return mspdi ? MSPIUtilities::mspdiToMppDateTime(*mspdi) : std::nullopt;
}

MPPSourceBaselineAssignment baselineAssignment(const MSPEBaseline& baseline, XMLElement assignment) {
    MPPSourceBaselineAssignment source;
    source.resourceId = assignment.attributeForName("idref").value_or("");
    source.units = unitsOf(assignment);
    if (const auto resource = baseline.getResourceById(source.resourceId)) {
        const Children children(*resource, kChildNames);
        source.kind = kindFromText(children.text(Child::Type));
        source.costPerHour = numberOrZero(children, Child::CostPerHour);
        source.costPerUse = numberOrZero(children, Child::CostPerUse);
    }
    return source;
}

// Of the first baseline: there is never a second one.
std::optional<MPPSourceTaskBaseline> baselineOfTask(const MSPEMapper& mapper, std::string_view id) {
    if (mapper.zelbBaselines().empty())
        return std::nullopt;
    const MSPEBaseline& baseline = mapper.zelbBaselines().front();
    const auto task = baseline.getTaskById(id);
    if (!task)
        return std::nullopt;
    const Children children(*task, kChildNames);
    MPPSourceTaskBaseline source;
    source.start = dateOf(children, Child::StartDate);
    source.end = dateOf(children, Child::EndDate);
    source.duration = children.number(Child::Duration);
    source.effort = children.number(Child::Effort);
    source.staticCost = children.onlyNumber(Child::StaticCost);
    forEachChildElement(*task, "assignment", [&](XMLElement assignment) {
        source.assignments.push_back(baselineAssignment(baseline, assignment));
    });
    return source;
}

// A task has one constraint. What else bounds its end can be told as its deadline.
std::optional<Date> deadlineOf(const Info& info, bool projectFromStart) {
    const auto constraint = MSPETaskConstraint::ofTask(info, projectFromStart);
    const bool tellsEnd = constraint && (constraint->type == ConstraintType::MustFinishOn ||
                                         constraint->type == ConstraintType::FinishNoLaterThan);
    if (tellsEnd)
        return std::nullopt;
    if (info.lockedEndDate())
        return info.lockedEndDate();
    const Info::Bound& later = info.noLaterThan();
    return later.constrainsTaskEnd ? later.date : std::nullopt;
}

} // namespace

std::unique_ptr<MPPTaskSource> sourceOfTask(const MSPEMapper& mapper, XMLElement zelbTask,
                                            const MSPEScheduledTaskInfo& info, bool isEffortDriven) {
    const Children children(zelbTask, kChildNames);
    auto source = std::make_unique<MPPTaskSource>();
    source->id = info.uid();
    source->effort = info.effort();
    source->effortDone = info.effortDone();
    source->completion = info.percentageComplete();
    source->staticCost = children.onlyNumber(Child::StaticCost);
    source->isGroup = info.taskType() == Info::TaskType::Group;
    source->isEffortDriven = isEffortDriven;
    source->deadline = deadlineOf(info, mapper.projectMapper()->scheduleFromStart());
    source->baseline = baselineOfTask(mapper, info.uid());
    return source;
}

std::unique_ptr<MPPResourceSource> sourceOfResource(XMLElement zelbResource) {
    const Children children(zelbResource, kChildNames);
    auto source = std::make_unique<MPPResourceSource>();
    source->id = zelbResource.attributeForName("id").value_or("");
    source->kind = kindFromText(children.text(Child::Type));
    return source;
}

} // namespace brackwater
