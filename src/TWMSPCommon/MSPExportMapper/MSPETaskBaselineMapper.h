#pragma once

#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"
#include "Platform/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/MSPEBaselineMapperBase.h"

#include <memory>
#include <optional>

namespace brackwater {

class MSPEXMLTaskBaselineAdapter;

/// The dates, duration, work and cost that a baseline has of a task.
class MSPETaskBaselineMapper final : public MSPEBaselineMapperBase {
public:
    using MSPEBaselineMapperBase::MSPEBaselineMapperBase;

    /// From the task's element in the main document; null where the baseline does not have it. `source` gets what the
    /// first baseline says of the task, where sources are kept.
    [[nodiscard]] std::shared_ptr<MSPEXMLTaskBaselineAdapter>
    newBaselineFromZelbTask(XMLElement zelbTask, std::optional<MPPSourceTaskBaseline>& source) const;
};

} // namespace brackwater
