#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ChildClass.h"
#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementLog.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"

namespace brackwater {

namespace {

using namespace conversions;

/// Given as a factor; the record's unit is a hundredth of a percent.
double units(ElementText text) { return number(text) * 10000.0; }

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<MPPAssignment>>({
    {"UID", dropped},
    {"Finish", setField<&MPPAssignment::finishDate, date>},
    {"RemainingWork", setField<&MPPAssignment::remainingWork, wholeHours>},
    {"ResourceUID", setProxy<&MPPAssignment::resource>},
    {"Start", setField<&MPPAssignment::startDate, date>},
    {"TaskUID", setProxy<&MPPAssignment::task>},
    {"Units", setField<&MPPAssignment::assignmentUnits, units>},
    {"Work", setField<&MPPAssignment::work, wholeHours>},
}));

} // namespace

void MSPEXMLAssignmentAdapter::addChild(const std::shared_ptr<MSPEXMLAdapter>& given) {
    const MSPEXMLAdapter& child = requireChild(given);
    if (child.name() == "Baseline")
        mppDomObject()->baselines.push_back(requireChildClass<MSPEXMLAssignmentBaselineAdapter>(child).mppDomObject());
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLAssignmentAdapter::addChildElementWithName(std::string_view name,
                                                                                  ElementText stringValue) {
    logElement(FMT_COMPILE("+++ {} Assignment /{} =\"{}\""), logMark(name), name, shown(stringValue));
    kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

} // namespace brackwater
