#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPAssignment.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Baseline" of an assignment: just its number.
class MSPEXMLAssignmentBaselineAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLAssignmentBaselineAdapter, MSPEXMLBaselineAdapter<MPPAssignmentBaseline>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLAssignmentBaselineAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
