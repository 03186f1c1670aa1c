#pragma once

#include "ByteBuilder.h"

namespace brackwater::layout {

// Values of the template's own empty project. An export replaces all of them.

inline constexpr std::uint32_t kNoDate = 0xFFFFFFFF;
/// Monday 2007-01-01 at 8:00: 8402 days since 1983-12-31 in the upper half, tenths of a minute in the lower.
inline constexpr std::uint32_t kProjectStart = 8402U << 16 | 4800U;

inline constexpr std::string_view kStandardCalendarName = "Standard";

/// GUIDs only need to differ.
constexpr GuidBytes guidNumber(std::uint8_t n) {
    return {0x42, 0x72, 0x61, 0x63, 0x6B, 0x77, 0x47, 0x74, 0x80, 0x65, 0x72, 0x00, 0x00, 0x00, 0x00, n};
}
inline constexpr GuidBytes kProjectGuid = guidNumber(1);
inline constexpr GuidBytes kStandardCalendarGuid = guidNumber(2);
inline constexpr GuidBytes kDefaultResourceGuid = guidNumber(3);
inline constexpr GuidBytes kFileGuid = guidNumber(4);
/// Means work without a resource in all files: a constant of the format.
inline constexpr GuidBytes kNobodyGuid{0x7E, 0x8B, 0xCB, 0xA0, 0x8C, 0x2A, 0x6D, 0x43, 0, 0, 0, 0, 0, 0, 0, 0xFF};
inline constexpr GuidBytes kNoOutlineCodeGuid = guidNumber(5);
inline constexpr GuidBytes kGanttChartGuid = guidNumber(6);
inline constexpr GuidBytes kNoGuid{};

} // namespace brackwater::layout
