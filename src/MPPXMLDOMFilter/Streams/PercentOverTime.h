#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"
#include "MPPXMLDOMFilter/Streams/DateEncoder.h"

#include <vector>

namespace brackwater {

/// Appends the block of a task's "Var2Data" element that tells how its percentage grew.
void writePercentOverTime(MPPData& data, const std::vector<MPPProgressPoint>& points, DateEncoder& dates);

} // namespace brackwater
