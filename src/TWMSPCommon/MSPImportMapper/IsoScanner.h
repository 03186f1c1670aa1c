#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace brackwater::iso {

// POSIX extended patterns, matched leftmost-longest in the C locale, define what the scanners below accept and find.
// They cost a hundred times as much as the scanners, so only tests run them. No scanner expects a NUL in its text:
// texts end there.

inline constexpr const char* kDatePattern = "(-?([[:digit:]]*)-([[:digit:]]*)-([[:digit:]]*))?";
/// The point of the fraction is not escaped: any character begins one.
inline constexpr const char* kTimePattern = "([[:digit:]]*):([[:digit:]]*):([[:digit:]]*)(.([[:digit:]]*))?"
                                            "(((\\+|-)([[:digit:]]*):([[:digit:]]*))|Z)?";
inline constexpr const char* kDurationPattern = "P((([[:digit:]]*)Y)?(([[:digit:]]*)M)?(([[:digit:]]*)D)?)?"
                                                "T((([[:digit:]]*)H)?(([[:digit:]]*)M)?(([[:digit:]]*)S)?)?";
inline constexpr const char* kStrictDurationPattern = "PT([[:digit:]]*)H([[:digit:]]*)M([[:digit:]]*)S";

// Sub-matches are views into the text; one that did not participate is empty.

struct DateMatch {
    std::string_view whole; ///< begins at the start of the text; empty without a date
    std::string_view year, month, day;
};
[[nodiscard]] DateMatch scanDate(std::string_view text) noexcept;

struct TimeMatch {
    std::string_view whole;
    std::string_view hour, minute, second;
    std::string_view fraction; ///< any one character and digits after it: sub-match 4
    std::string_view zone;     ///< "Z" or an offset: sub-match 6
    std::string_view sign, zoneHour, zoneMinute;
};
[[nodiscard]] std::optional<TimeMatch> scanTime(std::string_view text) noexcept;

struct DurationMatch {
    std::string_view whole;
    std::string_view years, months, days, hours, minutes, seconds;
};
[[nodiscard]] std::optional<DurationMatch> scanDuration(std::string_view text) noexcept;
/// A match of the strict pattern at the start of the text.
[[nodiscard]] std::optional<DurationMatch> scanStrictDuration(std::string_view text) noexcept;

/// The number in the digits of a sub-match, saturated to 64 bits.
[[nodiscard]] std::int64_t numberOf(std::string_view digits) noexcept;

} // namespace brackwater::iso
