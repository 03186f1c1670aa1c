#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"

namespace brackwater {

MSPEXMLNotesAdapter::MSPEXMLNotesAdapter(std::string_view name, MSPEMapper* mapper, ElementText stringValue)
    : MSPEXMLAdapterClass(name, mapper), _notes(conversions::text(stringValue)) {}

std::shared_ptr<MSPEXMLNotesAdapter> MSPEXMLNotesAdapter::elementWithName(std::string_view name, MSPEMapper* mapper,
                                                                          ElementText stringValue) {
    return std::make_shared<MSPEXMLNotesAdapter>(name, mapper, stringValue);
}

} // namespace brackwater
