#pragma once

#include "ByteView.h"

namespace brackwater::inspect {

/// A wall-clock time: days since 1983-12-31 and tenths of a minute.
struct Date {
    std::uint16_t days = 0;
    std::uint16_t tenths = 0;
    auto operator<=>(const Date&) const = default; // NOLINT(modernize-use-nullptr): a false alarm of clang-tidy 14
};

/// Nothing where all bits are set: no date.
[[nodiscard]] std::optional<Date> dateFrom(std::uint32_t raw);
/// "2026-03-02 08:00"; seconds too where there are any.
[[nodiscard]] std::string textOf(const Date& date);
/// "2026-03-02T08:00:00", for programs.
[[nodiscard]] std::string isoText(const Date& date);
/// The day alone, as "2026-03-02".
[[nodiscard]] std::string dayText(std::uint16_t days);
/// Empty for no date.
[[nodiscard]] std::string textOf(const std::optional<Date>& date);

/// How many working minutes make up the longer units of this project.
struct WorkingUnits {
    std::uint32_t minutesPerDay = 0;
    std::uint32_t minutesPerWeek = 0;
    std::uint32_t daysPerMonth = 0;
};

/// A span of time in tenths of a minute and the unit that it is shown in.
struct Duration {
    std::int32_t tenths = 0;
    std::uint16_t unitCode = 0;
};

[[nodiscard]] bool isEstimated(const Duration& duration);
/// Whether the number is a percentage, not tenths of a minute.
[[nodiscard]] bool isPercentage(const Duration& duration);
/// "min", "h", "d", "w", "mon", "%", with "e" in front for elapsed ones.
[[nodiscard]] std::string unitText(const Duration& duration);
/// "2.5d", "3eh" for elapsed hours, "4d?" for an estimate. A percentage stands with "%".
[[nodiscard]] std::string textOf(const Duration& duration, const WorkingUnits& units);
/// Work in thousandths of a minute as hours: "12h".
[[nodiscard]] std::string workText(double thousandthsOfMinutes);
/// At most three decimals, none that are zero.
[[nodiscard]] std::string numberText(double value);
/// "08:00" of tenths of a minute since midnight.
[[nodiscard]] std::string timeText(std::uint32_t tenths);
/// "XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX", the first three groups with their lowest byte first, as Windows stores them.
[[nodiscard]] std::string textOf(const Guid& guid);

[[nodiscard]] std::string constraintText(std::uint16_t type);
[[nodiscard]] std::string linkTypeText(std::uint16_t type);
[[nodiscard]] std::string taskTypeText(std::uint16_t type);
[[nodiscard]] std::string contourText(std::uint16_t type);

/// The text of a note without its RTF frame; text that is no RTF as it stands.
[[nodiscard]] std::string textOfRtf(ByteView rtf);

} // namespace brackwater::inspect
