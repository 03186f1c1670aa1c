#include "loss-report/EffortShares.h"

#include <cmath>

namespace brackwater::lossreport {

EffortShares::EffortShares(const SourceTask& task, const SourceScenario& scenario) : _task(task), _scenario(scenario) {
    for (const SourceAssignment& assignment : task.assignments)
        if (const auto kind = kindOf(assignment)) {
            _kinds.at(*kind).any = true;
            _kinds.at(*kind).units += assignment.units;
        }
}

std::optional<std::size_t> EffortShares::kindOf(const SourceAssignment& assignment) const {
    const SourceResource* resource = _scenario.resource(assignment.resource);
    if (resource == nullptr || !resource->isWorker() || resource->isMaterial())
        return std::nullopt;
    return resource->type == "Staff" ? kStaff : kEquipment;
}

std::optional<double> EffortShares::of(const SourceAssignment& assignment) const {
    const auto kind = kindOf(assignment);
    if (!kind)
        return std::nullopt;
    const double all = _kinds.at(*kind).units;
    return all > 0 ? _task.effort * assignment.units / all : _task.effort;
}

std::optional<double> EffortShares::nearest(const SourceAssignment& assignment, double seconds) const {
    auto share = of(assignment);
    if (!share || !hasBothKinds())
        return share;
    const double all = _kinds.at(kStaff).units + _kinds.at(kEquipment).units;
    const auto consider = [&](double other) {
        if (std::abs(other - seconds) < std::abs(*share - seconds))
            share = other;
    };
    if (all > 0)
        consider(_task.effort * assignment.units / all);
    if (kindOf(assignment) == kEquipment)
        consider(_task.duration * assignment.units);
    return share;
}

} // namespace brackwater::lossreport
