#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPResource.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Resource".
class MSPEXMLResourceAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLResourceAdapter, MSPEXMLRecordAdapter<MPPResource>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLResourceAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// Takes "Baseline", "ExtendedAttribute" and "Notes".
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
