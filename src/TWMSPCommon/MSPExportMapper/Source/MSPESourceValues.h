#pragma once

#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"
#include "Platform/Xml/XMLElement.h"

#include <memory>

namespace brackwater {

class MSPEMapper;
class MSPEScheduledTaskInfo;

// Source values that the records of a corrected export keep.

/// Without the values that need the task's element, such as its baseline.
[[nodiscard]] std::unique_ptr<MPPTaskSource> sourceOfTask(const MSPEScheduledTaskInfo& info, bool projectFromStart);
[[nodiscard]] std::unique_ptr<MPPResourceSource> sourceOfResource(const MSPEMapper& mapper, XMLElement zelbResource);
/// The assignments of a task of the baseline document, in order.
[[nodiscard]] std::vector<MPPSourceBaselineAssignment> sourceOfBaselineAssignments(XMLElement baselineTask);

} // namespace brackwater
