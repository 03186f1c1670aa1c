#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataInfo.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace brackwater {

/// Tells by days what the target has no element for: the pieces of a split task, and a quantity of material.
class MSPETimephasedDataMapper final : public MSPEObjectMapperBase {
public:
    using MSPEObjectMapperBase::MSPEObjectMapperBase;

    /// Number of segments of the split task that was read last.
    [[nodiscard]] std::int64_t splitCount() const noexcept { return _splitCount; }

    /// The days of the segments, which are tasks of the scenario, with values, and those of the gaps between them;
    /// nothing for a task without `split`.
    [[nodiscard]] std::optional<MSPETimephasedDataArray> newTimephasedDataFromZelbSplitTask(XMLElement zelbTask,
                                                                                            XMLElement zelbScenario);
    /// The consumption in seconds, spread evenly over Monday to Friday of the span; nothing for a resource that is no
    /// material and for a span without a length. Start and finish are source texts.
    [[nodiscard]] std::optional<MSPETimephasedDataArray>
    newTimephasedDataFromAssignment(XMLElement zelbAssignment, XMLElement zelbResource, std::string_view start,
                                    std::string_view finish, double consumption) const;

private:
    std::int64_t _splitCount = 0;
};

} // namespace brackwater
