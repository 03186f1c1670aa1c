#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"

#include <memory>
#include <optional>

namespace brackwater {

class MSPEXMLTaskAdapter;

/// Builds a "Task" element from a task of the source: this is where the source's words for scheduling turn into the
/// target's. One mapper makes one task.
class MSPETaskMapper final : public MSPEObjectMapperBase {
public:
    using MSPEObjectMapperBase::MSPEObjectMapperBase;

    /// Without a parent it is the top task, which only the log line shows. Raises for a missing element, one without
    /// an id, and everything that the source tells wrongly.
    [[nodiscard]] std::shared_ptr<MSPEXMLTaskAdapter> newTaskFromZELBTask(std::optional<XMLElement> zelbTask,
                                                                          std::optional<XMLElement> parentTask) const;
};

} // namespace brackwater
