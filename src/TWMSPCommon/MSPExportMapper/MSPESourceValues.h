#pragma once

#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"
#include "Platform/XMLElement.h"

#include <memory>
#include <optional>
#include <string_view>

namespace brackwater {

class MSPEMapper;
class MSPEScheduledTaskInfo;

// What the records of a corrected export keep of their elements.

[[nodiscard]] std::unique_ptr<MPPTaskSource> sourceOfTask(const MSPEMapper& mapper, XMLElement zelbTask,
                                                          const MSPEScheduledTaskInfo& info, bool isEffortDriven);
[[nodiscard]] std::unique_ptr<MPPResourceSource> sourceOfResource(XMLElement zelbResource);

} // namespace brackwater
