#pragma once

#include "Platform/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/MSPEBaselineMapperBase.h"

#include <memory>

namespace brackwater {

class MSPEXMLResourceBaselineAdapter;

/// Whether a baseline has a resource; nothing more is told of it.
class MSPEResourceBaselineMapper final : public MSPEBaselineMapperBase {
public:
    using MSPEBaselineMapperBase::MSPEBaselineMapperBase;

    /// From the resource's element in the main document; null where the baseline does not have it.
    [[nodiscard]] std::shared_ptr<MSPEXMLResourceBaselineAdapter>
    newBaselineFromZelbResource(XMLElement zelbResource) const;
};

} // namespace brackwater
