#include "MPPXMLDOMFilter/Adapters/MSPEXMLPredecessorLinkAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/ProcessState.h"

namespace brackwater {

namespace {

using namespace conversions;

constexpr std::int32_t kLagFormatPercent = 19;
constexpr std::int32_t kLagFormatElapsedPercent = 20;

void setIsPercentage(MPPConstraint& link, ElementText text) {
    const std::int32_t format = int32(text);
    assertThat(format == kLagFormatPercent || format == kLagFormatElapsedPercent, "Unexpected Lag Format: {}", format);
    link.isPercentage = true;
}

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<MPPConstraint>>({
    {"PredecessorUID", setProxy<&MPPConstraint::task1>},
    {"LagFormat", setIsPercentage},
    {"LinkLag", setField<&MPPConstraint::lag, number>},
    {"Type", setField<&MPPConstraint::constraintType, int32>},
}));

} // namespace

MSPEXMLPredecessorLinkAdapter::MSPEXMLPredecessorLinkAdapter(std::string_view name, MSPEMapper* mapper)
    : MSPEXMLAdapterClass(name, mapper) {
    mppDomObject()->ID = ++processState().links;
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLPredecessorLinkAdapter::addChildElementWithName(std::string_view name,
                                                                                       ElementText stringValue) {
    kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

} // namespace brackwater
