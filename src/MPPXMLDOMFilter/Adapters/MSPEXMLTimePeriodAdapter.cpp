#include "MPPXMLDOMFilter/Adapters/MSPEXMLTimePeriodAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"

namespace brackwater {

std::shared_ptr<MSPEXMLAdapter> MSPEXMLTimePeriodAdapter::addChildElementWithName(std::string_view name,
                                                                                  ElementText stringValue) {
    if (name == "FromDate")
        _fromDate = conversions::date(stringValue);
    else if (name == "ToDate")
        _toDate = conversions::date(stringValue);
    return nullptr;
}

} // namespace brackwater
