#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Baseline" of a task. Its work is in seconds, unlike the work of a task.
class MSPEXMLTaskBaselineAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLTaskBaselineAdapter, MSPEXMLBaselineAdapter<MPPTaskBaseline>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLTaskBaselineAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
