#pragma once

#include "Platform/Time/Date.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

// Exact values of a record from the source document. The mapping keeps them beside the record's own fields for
// corrected exports; an exact export never has them.

namespace brackwater {

/// Keys of custom fields with their values, in document order.
using MPPSourceFields = std::vector<std::pair<std::string, std::string>>;

/// One piece of a split task.
struct MPPSourceSegment {
    std::optional<Date> start;
    std::optional<Date> end;
    double duration = 0; ///< seconds
    double effort = 0;   ///< seconds
};

/// An assignment of the task's counterpart in the baseline document.
struct MPPSourceBaselineAssignment {
    std::string resourceId; ///< "r3"
    double units = 1;       ///< 1 is 100 % of a work resource, or one unit of material
};

/// The task's counterpart in the baseline document. Missing amounts are 0.
struct MPPSourceTaskBaseline {
    double duration = 0;   ///< seconds
    double effort = 0;     ///< seconds
    double staticCost = 0; ///< whole currency units
    std::vector<MPPSourceBaselineAssignment> assignments;
};

struct MPPTaskSource {
    std::string id;        ///< "t12"
    double effort = 0;     ///< seconds
    double effortDone = 0; ///< seconds
    double completion = 0; ///< progress as a fraction from 0 to 1, from the effort or the percentage
    bool isGroup = false;
    bool isEffortDriven = false;
    std::optional<Date> deadline; ///< a bound on the end besides the task's one constraint
    MPPSourceFields fields;
    std::vector<MPPSourceSegment> segments; ///< empty if the task is not split
    std::optional<MPPSourceTaskBaseline> baseline;
};

enum class MPPResourceKind { Staff, Equipment, Material };

struct MPPResourceSource {
    std::string id; ///< "r3"
    MPPResourceKind kind = MPPResourceKind::Staff;
    double baselineCostPerHour = 0; ///< of the resource in the baseline document, whole currency units
    double baselineCostPerUse = 0;  ///< whole currency units
    MPPSourceFields fields;
};

} // namespace brackwater
