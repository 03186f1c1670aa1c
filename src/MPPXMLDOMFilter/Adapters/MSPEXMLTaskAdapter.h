#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Task". Logs every name that it is sent, known or not.
class MSPEXMLTaskAdapter final : public MSPEXMLAdapterClass<MSPEXMLTaskAdapter, MSPEXMLRecordAdapter<MPPTask>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLTaskAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// Takes "Baseline", "ExtendedAttribute" and "Notes".
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
    /// Makes an MSPEXMLPredecessorLinkAdapter for "PredecessorLink". The link is the caller's: no list of the task
    /// takes it.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name) override;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
