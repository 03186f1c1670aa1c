#pragma once

#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"

#include <span>
#include <vector>

namespace brackwater {

/// A resource's share of a task.
struct WorkShare {
    MPPResourceKind kind = MPPResourceKind::Staff;
    double units = 1; ///< 1 is 100 %
};

/// The work of each share in seconds, 0 for material. Staff share the effort by units; equipment works in parallel for
/// the duration. Equipment shares the effort if duration and units show that it covers both, or if there is no staff.
[[nodiscard]] std::vector<double> sharedWork(std::span<const WorkShare> shares, double effort, double duration);

} // namespace brackwater
