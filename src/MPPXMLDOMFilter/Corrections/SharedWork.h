#pragma once

#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"

#include <span>
#include <vector>

namespace brackwater {

/// Who works on a task, and how much of each.
struct WorkShare {
    MPPResourceKind kind = MPPResourceKind::Staff;
    double units = 1; ///< 1 is 100 %
};

/// The work of each share in seconds, 0 for material. The effort is the staff's, shared by units; equipment works
/// beside it for the duration. Where duration and units show that the effort is of both, or where there is no staff,
/// the equipment has its share in it.
[[nodiscard]] std::vector<double> sharedWork(std::span<const WorkShare> shares, double effort, double duration);

} // namespace brackwater
