#pragma once

#include "Platform/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/MSPEBaselineMapperBase.h"

#include <memory>

namespace brackwater {

class MSPEXMLAssignmentBaselineAdapter;

/// Whether a baseline has a resource on a task; nothing more is told of it.
class MSPEAssignmentBaselineMapper final : public MSPEBaselineMapperBase {
public:
    using MSPEBaselineMapperBase::MSPEBaselineMapperBase;

    /// From the assignment's element in the main document; null where the baseline does not have it.
    [[nodiscard]] std::shared_ptr<MSPEXMLAssignmentBaselineAdapter>
    newBaselineFromZelbAssignment(XMLElement zelbAssignment) const;
};

} // namespace brackwater
