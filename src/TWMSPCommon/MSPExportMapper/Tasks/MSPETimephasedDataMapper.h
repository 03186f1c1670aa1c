#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataInfo.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace brackwater {

/// Daily values of what the target has no element for: the pieces of a split task, and material quantities.
class MSPETimephasedDataMapper final : public MSPEObjectMapperBase {
public:
    using MSPEObjectMapperBase::MSPEObjectMapperBase;

    /// Number of segments of the last split task.
    [[nodiscard]] std::int64_t splitCount() const noexcept { return _splitCount; }

    /// The days of the segments, which are tasks of the scenario, with values, and those of the gaps between them;
    /// nothing for a task without `split`.
    [[nodiscard]] std::optional<MSPETimephasedDataArray> newTimephasedDataFromZelbSplitTask(XMLElement zelbTask,
                                                                                            XMLElement zelbScenario);
    /// The consumption in seconds, spread evenly over Monday to Friday of the span; nothing if the resource is not
    /// material or the span has no length. Start and finish are source texts.
    [[nodiscard]] std::optional<MSPETimephasedDataArray>
    newTimephasedDataFromAssignment(XMLElement zelbAssignment, XMLElement zelbResource, std::string_view start,
                                    std::string_view finish, double consumption) const;

private:
    std::int64_t _splitCount = 0;
};

} // namespace brackwater
