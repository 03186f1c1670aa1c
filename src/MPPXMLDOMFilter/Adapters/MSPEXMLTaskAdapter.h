#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Task". Logs every name that it gets, known or not.
class MSPEXMLTaskAdapter final : public MSPEXMLAdapterClass<MSPEXMLTaskAdapter, MSPEXMLRecordAdapter<MPPTask>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLTaskAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// Takes "Baseline", "ExtendedAttribute" and "Notes".
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
    /// Creates an MSPEXMLPredecessorLinkAdapter for "PredecessorLink". The caller owns the link: it joins no list of
    /// the task.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name) override;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
