#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPAssignment.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Assignment". Logs every name that it gets with a text, known or not.
class MSPEXMLAssignmentAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLAssignmentAdapter, MSPEXMLRecordAdapter<MPPAssignment>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLAssignmentAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// Takes "Baseline".
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
