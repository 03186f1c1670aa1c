#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"

namespace brackwater {

namespace {

using namespace conversions;

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<MPPTaskBaseline>>({
    {"Duration", setField<&MPPTaskBaseline::duration, duration>},
    {"Finish", setField<&MPPTaskBaseline::finish, date>},
    {"Start", setField<&MPPTaskBaseline::start, date>},
    {"Work", setField<&MPPTaskBaseline::work, duration>},
}));

} // namespace

std::shared_ptr<MSPEXMLAdapter> MSPEXMLTaskBaselineAdapter::addChildElementWithName(std::string_view name,
                                                                                    ElementText stringValue) {
    if (name == "Number")
        setBaselineNumber(int32(stringValue));
    else
        kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLResourceBaselineAdapter::addChildElementWithName(std::string_view name,
                                                                                        ElementText stringValue) {
    if (name == "Number")
        setBaselineNumber(conversions::int32(stringValue));
    return nullptr;
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLAssignmentBaselineAdapter::addChildElementWithName(std::string_view name,
                                                                                          ElementText stringValue) {
    if (name == "Number")
        setBaselineNumber(conversions::int32(stringValue));
    return nullptr;
}

} // namespace brackwater
