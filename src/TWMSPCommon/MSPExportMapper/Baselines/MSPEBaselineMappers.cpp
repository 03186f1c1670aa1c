#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaselineMappers.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"
#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Source/MSPESourceValues.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <fmt/format.h>

namespace brackwater {

MSPEBaselineMapperBase::MSPEBaselineMapperBase(std::size_t baselineNumber, MSPEMapper* mapper)
    : MSPEObjectMapperBase(mapper), _baselineNumber(static_cast<std::int64_t>(baselineNumber)) {
    const std::size_t count = mapper->zelbBaselines().size();
    assertThat(baselineNumber < count, "Incorrect argument baselineNumber={}. Must be from 0 to {}.", baselineNumber,
               static_cast<std::int64_t>(count) - 1);
}

const MSPEBaseline& MSPEBaselineMapperBase::baseline() const {
    return mapper()->zelbBaselines()[static_cast<std::size_t>(_baselineNumber)];
}

namespace {

enum class Child : std::size_t { StartDate, EndDate, Duration, Effort, StaticCost };

constexpr NameTable kChildNames(std::array<std::string_view, 5>{"start-date", "end-date", "duration", "effort",
                                                                "static-cost"});

using Children = MSPEChildElements<Child, kChildNames.size()>;

std::optional<std::string> mspdiDate(std::optional<std::string_view> text) {
    return text ? MSPIUtilities::zelbToMspdiDateTime(*text) : std::nullopt;
}

double numberOrZero(const Children& children, Child name) {
    const auto text = children.text(name);
    return text ? doubleValue(*text) : 0.0;
}

} // namespace

std::shared_ptr<MSPEXMLTaskBaselineAdapter>
MSPETaskBaselineMapper::newBaselineFromZelbTask(XMLElement zelbTask,
                                                std::optional<MPPSourceTaskBaseline>& source) const {
    const auto id = zelbTask.attributeView("id");
    const auto baselineTask = id ? baseline().getTaskById(*id) : std::nullopt;
    if (!baselineTask)
        return nullptr;

    auto element = newNumberedBaseline<MSPEXMLTaskBaselineAdapter>();
    const Children children(*baselineTask, kChildNames);
    // Both dates depend on the first one.
    if (children.has(Child::StartDate)) {
        element->addChildElementWithName("Start", mspdiDate(children.text(Child::StartDate)));
        element->addChildElementWithName("Finish", mspdiDate(children.text(Child::EndDate)));
    }
    if (const auto duration = children.text(Child::Duration))
        element->addChildElementWithName("Duration", MSPIUtilities::zelbToMspdiDuration(duration));
    if (const auto effort = children.text(Child::Effort))
        element->addChildElementWithName("Work", MSPIUtilities::zelbToMspdiDuration(effort));
    const auto cost = children.onlyNumber(Child::StaticCost);
    if (cost)
        element->addChildElementWithName("FixedCost", fmt::format("{:.2f}", *cost * 100));
    if (mapper()->keepsSource() && baselineNumber() == 0)
        source = MPPSourceTaskBaseline{numberOrZero(children, Child::Duration), numberOrZero(children, Child::Effort),
                                       cost.value_or(0), sourceOfBaselineAssignments(*baselineTask)};
    return element;
}

std::shared_ptr<MSPEXMLResourceBaselineAdapter>
MSPEResourceBaselineMapper::newBaselineFromZelbResource(XMLElement zelbResource) const {
    const auto id = zelbResource.attributeView("id");
    if (!id || !baseline().getResourceById(*id))
        return nullptr;
    return newNumberedBaseline<MSPEXMLResourceBaselineAdapter>();
}

std::shared_ptr<MSPEXMLAssignmentBaselineAdapter>
MSPEAssignmentBaselineMapper::newBaselineFromZelbAssignment(XMLElement zelbAssignment) const {
    const auto task = zelbAssignment.parent();
    const auto taskId = task ? task->attributeView("id") : std::nullopt;
    const auto resourceId = zelbAssignment.attributeView("idref");
    if (!taskId || !resourceId || !baseline().getAssignmentByTaskId(*taskId, *resourceId))
        return nullptr;
    return newNumberedBaseline<MSPEXMLAssignmentBaselineAdapter>();
}

} // namespace brackwater
