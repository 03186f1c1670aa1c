#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"

namespace brackwater {

/// "TimephasedData": drops all that it is sent. Timephased values have no place in the model.
class MSPEXMLTimephasedDataAdapter final : public MSPEXMLAdapterClass<MSPEXMLTimephasedDataAdapter, MSPEXMLAdapter> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLTimephasedDataAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;
};

} // namespace brackwater
