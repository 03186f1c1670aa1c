#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "Platform/Values/Exception.h"

#include <fmt/format.h>

namespace brackwater {

std::shared_ptr<MSPEXMLAdapter> MSPEXMLCollectionAdapterBase::addChildElementWithName(std::string_view name) {
    failAssertion(fmt::format("!!! PROHIBITED CALL: {} addChildElementWithName:@\"{}\"", className(), name));
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLCollectionAdapterBase::addChildElementWithName(std::string_view name,
                                                                                      ElementText stringValue) {
    failAssertion(fmt::format("!!! PROHIBITED CALL: {} addChildElementWithName:@\"{}\" stringValue:@\"{}\"",
                              className(), name, conversions::shown(stringValue)));
}

void MSPEXMLCollectionAdapterBase::failUnexpectedChild(const MSPEXMLAdapter* child) {
    failAssertion(fmt::format("Unexpected child to add to collection: {}", classNameOf(child)));
}

} // namespace brackwater
