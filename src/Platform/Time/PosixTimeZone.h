#pragma once

#include <unicode/timezone.h>

#include <memory>
#include <string_view>

namespace brackwater {

/// The zone of a POSIX rule as TZ may hold one: "EST5", "<+0530>-5:30", "CET-1CEST,M3.5.0,M10.5.0/3". Daylight time
/// without dates follows the rule of the United States, dates in other forms than "Mm.w.d/time" are not understood.
/// Null where the text is no such rule. For this folder's sources only.
[[nodiscard]] std::unique_ptr<icu::TimeZone> zoneFromPosixRule(std::string_view rule);

} // namespace brackwater
