#pragma once

#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"
#include "Platform/Xml/XMLElement.h"

#include <memory>

namespace brackwater {

class MSPEMapper;
class MSPEScheduledTaskInfo;

// What the records of a corrected export keep of their elements.

/// Without what takes the task's element itself, such as its baseline.
[[nodiscard]] std::unique_ptr<MPPTaskSource> sourceOfTask(const MSPEScheduledTaskInfo& info, bool projectFromStart);
[[nodiscard]] std::unique_ptr<MPPResourceSource> sourceOfResource(const MSPEMapper& mapper, XMLElement zelbResource);
/// The assignments of a task of the baseline document, in order.
[[nodiscard]] std::vector<MPPSourceBaselineAssignment> sourceOfBaselineAssignments(XMLElement baselineTask);

} // namespace brackwater
