#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPConstraint.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "PredecessorLink": a link from another task to the one that created it. Its record's ID counts all links made by the
/// process, from 1.
class MSPEXMLPredecessorLinkAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLPredecessorLinkAdapter, MSPEXMLRecordAdapter<MPPConstraint>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLPredecessorLinkAdapter";
    MSPEXMLPredecessorLinkAdapter(std::string_view name, MSPEMapper* mapper);

    using MSPEXMLAdapter::addChildElementWithName;
    /// "LagFormat" is given only for percentage lags and must be a percentage format.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
