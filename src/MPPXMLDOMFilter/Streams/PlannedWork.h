#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "MPPXMLDOMFilter/Model/MPPAssignment.h"

namespace brackwater {

/// Whether an assignment has a block of complete work.
[[nodiscard]] bool hasCompleteWork(const MPPAssignment& assignment);

/// Append the two work blocks of an assignment's "Var2Data" elements: how the work that remains, and the work that is
/// done, is spread over time.
void writePlannedWork(MPPData& data, const MPPAssignment& assignment);
void writeCompleteWork(MPPData& data, const MPPAssignment& assignment);

} // namespace brackwater
