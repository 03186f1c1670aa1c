#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ChildClass.h"
#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "Platform/Values/Exception.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

using namespace conversions;

/// MSPDI numbers the types the other way round: 0 is material, 1 is work.
void setType(MPPResource& resource, ElementText text) {
    switch (const std::int32_t type = int32(text)) {
    case 0:
        return resource.setResourceTypeMaterial();
    case 1:
        return resource.setResourceTypeWork();
    default:
        failAssertion(fmt::format("Unexpected Resource Type: {}", type));
    }
}

/// Given in hundredths of the currency.
double hundredths(ElementText text) { return number(text) / 100.0; }

/// Given as a factor.
double percent(ElementText text) { return number(text) * 100.0; }

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<MPPResource>>({
    {"UID", dropped},
    {"ID", setField<&MPPResource::ID, integer>},
    {"CalendarUID", setProxy<&MPPResource::calendar>},
    {"CostPerUse", setField<&MPPResource::costPerUse, hundredths>},
    {"EmailAddress", setField<&MPPResource::emailAddress, text>},
    {"Group", setField<&MPPResource::group, text>},
    {"IsNull", dropped},
    {"MaxUnits", setField<&MPPResource::maxUnits, percent>},
    {"Name", setField<&MPPResource::name, text>},
    {"StandardRate", setField<&MPPResource::standartRate, number>},
    {"StandardRateFormat", dropped},
    {"Type", setType},
}));

} // namespace

void MSPEXMLResourceAdapter::addChild(const std::shared_ptr<MSPEXMLAdapter>& given) {
    const MSPEXMLAdapter& child = requireChild(given);
    MPPResource& resource = *mppDomObject();
    if (child.name() == "Baseline")
        resource.baselines.push_back(requireChildClass<MSPEXMLResourceBaselineAdapter>(child).mppDomObject());
    else if (child.name() == "ExtendedAttribute")
        resource.extendedAttributes.push_back(requireChildClass<MSPEXMLExtendedAttributeAdapter>(child).mppDomObject());
    else if (child.name() == "Notes")
        resource.notes = requireChildClass<MSPEXMLNotesAdapter>(child).notes();
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLResourceAdapter::addChildElementWithName(std::string_view name,
                                                                                ElementText stringValue) {
    kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

} // namespace brackwater
