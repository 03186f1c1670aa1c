#include "TWMSPCommon/MSPExportMapper/Source/MSPESourceValues.h"

#include "Platform/Text/TextReadings.h"
#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaseline.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Source/MSPESourceLists.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskConstraint.h"

#include <array>

namespace brackwater {

namespace {

using Info = MSPEScheduledTaskInfo;
using ConstraintType = MSPETaskConstraint::Type;

enum class Child : std::size_t { Type, CostPerHour, CostPerUse };

constexpr NameTable kChildNames(std::array<std::string_view, 3>{"type", "cost-per-hour", "cost-per-use"});

using Children = MSPEChildElements<Child, kChildNames.size()>;

MPPResourceKind kindFromText(std::optional<std::string_view> type) {
    if (type == "Material")
        return MPPResourceKind::Material;
    return type == "Equipment" ? MPPResourceKind::Equipment : MPPResourceKind::Staff;
}

double numberOrZero(const Children& children, Child name) {
    const auto text = children.text(name);
    return text ? doubleValue(*text) : 0.0;
}

// A task has one constraint. Another bound on its end can become its deadline.
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

std::unique_ptr<MPPTaskSource> sourceOfTask(const MSPEScheduledTaskInfo& info, bool projectFromStart) {
    auto source = std::make_unique<MPPTaskSource>();
    source->id = info.uid();
    source->effort = info.effort();
    source->effortDone = info.effortDone();
    source->completion = info.percentageComplete();
    source->isGroup = info.taskType() == Info::TaskType::Group;
    source->deadline = deadlineOf(info, projectFromStart);
    return source;
}

std::unique_ptr<MPPResourceSource> sourceOfResource(const MSPEMapper& mapper, XMLElement zelbResource) {
    auto source = std::make_unique<MPPResourceSource>();
    source->id = zelbResource.attributeForName("id").value_or("");
    source->kind = kindFromText(Children(zelbResource, kChildNames).text(Child::Type));
    source->fields = sourceFields(zelbResource);
    if (mapper.zelbBaselines().empty())
        return source;
    if (const auto inBaseline = mapper.zelbBaselines().front().getResourceById(source->id)) {
        const Children children(*inBaseline, kChildNames);
        source->baselineCostPerHour = numberOrZero(children, Child::CostPerHour);
        source->baselineCostPerUse = numberOrZero(children, Child::CostPerUse);
    }
    return source;
}

std::vector<MPPSourceBaselineAssignment> sourceOfBaselineAssignments(XMLElement baselineTask) {
    std::vector<MPPSourceBaselineAssignment> assignments;
    forEachChildElement(baselineTask, "assignment", [&](XMLElement element) {
        const auto units = element.attributeView("units");
        const double number = units && !units->empty() ? doubleValue(*units) : 1.0;
        assignments.push_back({element.attributeForName("idref").value_or(""), number});
    });
    return assignments;
}

} // namespace brackwater
