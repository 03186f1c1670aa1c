#pragma once

#include "loss-report/SourcePlan.h"

namespace brackwater::lossreport {

/// How a task's effort is shared. The document does not say whether each kind of resource has the effort, both share
/// it, or staff share it while equipment runs as long as the task.
class EffortShares {
public:
    EffortShares(const SourceTask& task, const SourceScenario& scenario);

    /// Seconds of an assignment of the task, by units within its kind; nothing for material, which has a quantity
    /// instead.
    [[nodiscard]] std::optional<double> of(const SourceAssignment& assignment) const;
    /// For a task with both kinds, the possible value closest to `seconds`.
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
