#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPResource.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Baseline" of a resource: just its number.
class MSPEXMLResourceBaselineAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLResourceBaselineAdapter, MSPEXMLBaselineAdapter<MPPResourceBaseline>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLResourceBaselineAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
