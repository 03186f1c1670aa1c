#include "TWMSPCommon/MSPExportMapper/MSPETaskBaselineMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskBaselineAdapter.h"
#include "Platform/TextReadings.h"
#include "TWMSPCommon/MSPExportMapper/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/MSPESourceValues.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

enum class Child : std::size_t { StartDate, EndDate, Duration, Effort, StaticCost };

constexpr MSPEChildNames kChildNames(std::array<std::string_view, 5>{"start-date", "end-date", "duration", "effort",
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
    std::string buffer;
    const auto id = zelbTask.attributeView("id", buffer);
    const auto baselineTask = id ? baseline().getTaskById(*id) : std::nullopt;
    if (!baselineTask)
        return nullptr;

    auto element = newNumberedBaseline<MSPEXMLTaskBaselineAdapter>();
    const Children children(*baselineTask, kChildNames);
    // Both dates hang on the first one.
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

} // namespace brackwater
