#pragma once

namespace brackwater {

/// What a resource costs, in whole currency units.
struct ResourceRates {
    double perHour = 0; ///< or per unit of material
    double perUse = 0;
    bool isMaterial = false;
};

/// The cost, in hundredths, of work in hours or of a quantity of material. Each unit of a work resource is charged one
/// use; material is charged one use, whatever the quantity.
[[nodiscard]] inline double costOfWork(const ResourceRates& rates, double work, double units) {
    constexpr double kHundredths = 100.0;
    return (work * rates.perHour + rates.perUse * (rates.isMaterial ? 1.0 : units)) * kHundredths;
}

} // namespace brackwater
