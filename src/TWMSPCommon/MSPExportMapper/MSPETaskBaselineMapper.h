#pragma once

#include "Platform/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/MSPEBaselineMapperBase.h"

#include <memory>

namespace brackwater {

class MSPEXMLTaskBaselineAdapter;

/// The dates, duration, work and cost that a baseline has of a task.
class MSPETaskBaselineMapper final : public MSPEBaselineMapperBase {
public:
    using MSPEBaselineMapperBase::MSPEBaselineMapperBase;

    /// From the task's element in the main document; null where the baseline does not have it.
    [[nodiscard]] std::shared_ptr<MSPEXMLTaskBaselineAdapter> newBaselineFromZelbTask(XMLElement zelbTask) const;
};

} // namespace brackwater
