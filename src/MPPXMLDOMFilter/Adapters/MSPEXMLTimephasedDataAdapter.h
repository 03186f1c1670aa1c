#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"

namespace brackwater {

/// "TimephasedData": drops everything. The model has no place for timephased values.
class MSPEXMLTimephasedDataAdapter final : public MSPEXMLAdapterClass<MSPEXMLTimephasedDataAdapter, MSPEXMLAdapter> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLTimephasedDataAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;
};

} // namespace brackwater
