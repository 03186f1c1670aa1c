#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ChildClass.h"
#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementLog.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLPredecessorLinkAdapter.h"

namespace brackwater {

namespace {

using namespace conversions;

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<MPPTask>>({
    {"UID", dropped},
    {"ID", setField<&MPPTask::ID, integer>},
    {"Active", dropped},
    {"CalendarUID", setProxy<&MPPTask::calendar>},
    {"ConstraintDate", setField<&MPPTask::constraintDate, date>},
    {"ConstraintType", setField<&MPPTask::constraintType, int32>},
    {"Duration", setField<&MPPTask::duration, duration>},
    {"Estimated", setField<&MPPTask::estimated, boolean>},
    {"Finish", setField<&MPPTask::endDate, date>},
    {"FixedCost", setField<&MPPTask::fixedCost, number>},
    {"IgnoreResourceCalendar", setField<&MPPTask::ignoreResourceCalendar, boolean>},
    {"IsNull", dropped},
    {"LevelingCanSplit", setField<&MPPTask::levelingCanSplit, boolean>},
    {"Manual", dropped},
    {"Milestone", setField<&MPPTask::milestone, boolean>},
    {"Name", setField<&MPPTask::title, text>},
    {"OutlineLevel", setField<&MPPTask::outlineLevel, integer>},
    {"PercentComplete", setField<&MPPTask::percentageComplete, integer>},
    {"PercentWorkComplete", setField<&MPPTask::percentageWorkComplete, integer>},
    {"Priority", setField<&MPPTask::priority, int32>},
    {"Start", setField<&MPPTask::startDate, date>},
    {"Summary", dropped},
    {"Type", setField<&MPPTask::taskType, int32>},
    {"Work", setField<&MPPTask::work, wholeHours>},
}));

} // namespace

void MSPEXMLTaskAdapter::addChild(const std::shared_ptr<MSPEXMLAdapter>& given) {
    const MSPEXMLAdapter& child = requireChild(given);
    logElement(FMT_COMPILE("        Task /{}  *"), child.name());
    MPPTask& task = *mppDomObject();
    if (child.name() == "Baseline")
        task.baselines.push_back(requireChildClass<MSPEXMLTaskBaselineAdapter>(child).mppDomObject());
    else if (child.name() == "ExtendedAttribute")
        task.extendedAttributes.push_back(requireChildClass<MSPEXMLExtendedAttributeAdapter>(child).mppDomObject());
    else if (child.name() == "Notes")
        task.notes = requireChildClass<MSPEXMLNotesAdapter>(child).notes();
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLTaskAdapter::addChildElementWithName(std::string_view name) {
    logElement(FMT_COMPILE("        Task /{}"), name);
    if (name == "PredecessorLink")
        return MSPEXMLPredecessorLinkAdapter::elementWithName(name, mapper());
    return nullptr;
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLTaskAdapter::addChildElementWithName(std::string_view name,
                                                                            ElementText stringValue) {
    logElement(FMT_COMPILE("{} Task /{} =\"{}\""), logMark(name), name, shown(stringValue));
    kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

} // namespace brackwater
