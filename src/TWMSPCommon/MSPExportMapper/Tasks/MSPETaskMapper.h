#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"

#include <memory>
#include <optional>

namespace brackwater {

class MSPEXMLTaskAdapter;

/// Builds a "Task" element from a source task, converting the source's scheduling terms to the target's. One mapper
/// creates one task.
class MSPETaskMapper final : public MSPEObjectMapperBase {
public:
    using MSPEObjectMapperBase::MSPEObjectMapperBase;

    /// Without a parent it is the top task, which matters only to the log line. Raises if the element or its id is
    /// missing, and for all invalid source values.
    [[nodiscard]] std::shared_ptr<MSPEXMLTaskAdapter> newTaskFromZELBTask(std::optional<XMLElement> zelbTask,
                                                                          std::optional<XMLElement> parentTask) const;
};

} // namespace brackwater
