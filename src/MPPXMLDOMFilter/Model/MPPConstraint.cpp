#include "MPPXMLDOMFilter/Model/MPPConstraint.h"

#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <fmt/format.h>

#include <array>

namespace brackwater {

namespace {

constexpr std::array kTypeNames = {"FF", "FS", "SF", "SS"};

std::string shownTask(const TaskReference& task) {
    const MPPTask* record = task.pointer();
    return record ? fmt::format(".ID={}", record->ID) : "=<null>";
}

} // namespace

std::string MPPConstraint::description() const {
    const bool known = constraintType >= 0 && static_cast<std::size_t>(constraintType) < kTypeNames.size();
    return fmt::format("<MPPConstraint>: task1{} task2{} constraintType={} ({}) lag={:f} isPercentage={}",
                       shownTask(task1), shownTask(task2), constraintType,
                       known ? kTypeNames[static_cast<std::size_t>(constraintType)] : "??", lag,
                       isPercentage ? "YES" : "NO");
}

} // namespace brackwater
