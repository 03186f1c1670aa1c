#pragma once

#include <unicode/timezone.h>

#include <memory>
#include <string_view>

namespace brackwater {

/// The zone of a POSIX rule in TZ: "EST5", "<+0530>-5:30", "CET-1CEST,M3.5.0,M10.5.0/3". Daylight saving time without
/// dates follows the rule of the United States; only dates of the form "Mm.w.d/time" are supported. Null if the text is
/// not such a rule. Only for this folder's sources.
[[nodiscard]] std::unique_ptr<icu::TimeZone> zoneFromPosixRule(std::string_view rule);

} // namespace brackwater
