#pragma once

#include "loss-report/SourcePlan.h"

namespace brackwater::lossreport {

/// How a task's effort is shared out. The document leaves open whether the effort is that of each kind of resource, or
/// of both together, or that of the staff beside equipment that runs as long as the task.
class EffortShares {
public:
    EffortShares(const SourceTask& task, const SourceScenario& scenario);

    /// Seconds of an assignment of the task, by units within its kind; nothing for material, which has a quantity
    /// instead.
    [[nodiscard]] std::optional<double> of(const SourceAssignment& assignment) const;
    /// Of the readings that a task of both kinds allows, the one that is nearest to so many seconds.
    [[nodiscard]] std::optional<double> nearest(const SourceAssignment& assignment, double seconds) const;
    [[nodiscard]] bool hasBothKinds() const noexcept { return _kinds.at(kStaff).any && _kinds.at(kEquipment).any; }
    [[nodiscard]] bool hasWorkers() const noexcept { return _kinds.at(kStaff).any || _kinds.at(kEquipment).any; }

private:
    static constexpr std::size_t kStaff = 0, kEquipment = 1;
    struct KindOfWork {
        bool any = false;
        double units = 0;
    };
    [[nodiscard]] std::optional<std::size_t> kindOf(const SourceAssignment& assignment) const;

    const SourceTask& _task;
    const SourceScenario& _scenario;
    std::array<KindOfWork, 2> _kinds;
};

} // namespace brackwater::lossreport
