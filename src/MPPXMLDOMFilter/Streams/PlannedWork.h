#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "MPPXMLDOMFilter/Model/MPPAssignment.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"
#include "MPPXMLDOMFilter/Streams/DateEncoder.h"

#include <vector>

namespace brackwater {

/// Appends the block of a task's "Var2Data" element that tells how its percentage grew.
void writePercentOverTime(MPPData& data, const std::vector<MPPProgressPoint>& points, DateEncoder& dates);

/// Whether an assignment has a block of complete work.
[[nodiscard]] bool hasCompleteWork(const MPPAssignment& assignment);

/// Append the two work blocks of an assignment's "Var2Data" elements: how the work that remains, and the work that is
/// done, is spread over time.
void writePlannedWork(MPPData& data, const MPPAssignment& assignment);
void writeCompleteWork(MPPData& data, const MPPAssignment& assignment);

} // namespace brackwater
