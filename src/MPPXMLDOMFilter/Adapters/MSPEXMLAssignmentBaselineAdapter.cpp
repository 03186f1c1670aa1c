#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentBaselineAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"

namespace brackwater {

std::shared_ptr<MSPEXMLAdapter> MSPEXMLAssignmentBaselineAdapter::addChildElementWithName(std::string_view name,
                                                                                          ElementText stringValue) {
    if (name == "Number")
        setBaselineNumber(conversions::int32(stringValue));
    return nullptr;
}

} // namespace brackwater
