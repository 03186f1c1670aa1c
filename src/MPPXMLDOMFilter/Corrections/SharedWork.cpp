#include "MPPXMLDOMFilter/Corrections/SharedWork.h"

#include <algorithm>
#include <cmath>

namespace brackwater {

namespace {

constexpr double kSecondsOfMinute = 60.0;

struct UnitsOfKinds {
    double staff = 0;
    double equipment = 0;
    bool hasStaff = false;
};

UnitsOfKinds unitsOfKinds(std::span<const WorkShare> shares) {
    UnitsOfKinds units;
    for (const WorkShare& share : shares) {
        if (share.kind == MPPResourceKind::Staff) {
            units.staff += share.units;
            units.hasStaff = true;
        } else if (share.kind == MPPResourceKind::Equipment) {
            units.equipment += share.units;
        }
    }
    return units;
}

} // namespace

std::vector<double> sharedWork(std::span<const WorkShare> shares, double effort, double duration) {
    const UnitsOfKinds units = unitsOfKinds(shares);
    const double all = units.staff + units.equipment;
    const bool isOfBoth = !units.hasStaff || std::fabs(duration * all - effort) < kSecondsOfMinute;
    const double unitsOfEffort = isOfBoth ? all : units.staff;
    std::vector<double> work;
    work.reserve(shares.size());
    for (const WorkShare& share : shares) {
        if (share.kind == MPPResourceKind::Material)
            work.push_back(0);
        else if (share.kind == MPPResourceKind::Equipment && !isOfBoth)
            work.push_back(std::max(duration * share.units, 0.0));
        else // without units nothing says how to share the effort: each gets all of it
            work.push_back(unitsOfEffort > 0 ? effort * share.units / unitsOfEffort : effort);
    }
    return work;
}

} // namespace brackwater
