#pragma once

#include <compare>

namespace brackwater {

/// An absolute instant, in seconds since 1970-01-01T00:00:00Z. A date that may be missing is std::optional<Date>.
struct Date {
    double secondsSince1970 = 0.0;

    /// The current time.
    [[nodiscard]] static Date now();

    [[nodiscard]] Date advancedBy(double seconds) const noexcept { return {secondsSince1970 + seconds}; }
    [[nodiscard]] double secondsSince(Date earlier) const noexcept {
        return secondsSince1970 - earlier.secondsSince1970;
    }

    // The checker mistakes the 0 for a pointer. NOLINTNEXTLINE(modernize-use-nullptr)
    friend auto operator<=>(const Date&, const Date&) = default;
};

} // namespace brackwater
