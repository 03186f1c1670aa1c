#pragma once

#include "Platform/Time/Date.h"

namespace brackwater {

// The day of an instant and its time of day, in the system zone.

/// 00:00:00 of the day.
[[nodiscard]] Date beginOfDay(Date date);
/// 23:59:59 of the day.
[[nodiscard]] Date endOfDay(Date date);
/// In local time; on a day with a clock change it differs from the elapsed time.
[[nodiscard]] double secondsSinceMidnight(Date date);

} // namespace brackwater
