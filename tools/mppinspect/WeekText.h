#pragma once

#include "ProjectFile.h"

#include <functional>

namespace brackwater::inspect {

inline constexpr std::size_t kWeekSize = 420; ///< seven days of 60 bytes, Sunday first

/// The week at the offset of a block, which must hold its 420 bytes. Faults are told in the words of a complaint.
[[nodiscard]] Week weekAt(ByteView block, std::size_t offset, const std::function<void(std::string_view)>& complain);
/// Number, total, starts, lengths and running totals of a day, which stand behind the day's first word.
[[nodiscard]] std::vector<TimeRange> rangesAt(ByteView block, std::size_t offset,
                                              const std::function<void(std::string_view)>& complain);

/// "08:00-12:00 13:00-17:00", or "free".
[[nodiscard]] std::string rangesText(const std::vector<TimeRange>& ranges);
/// "Sun free, Mon-Fri 08:00-16:00": days that follow one another with the same times stand together, inherited ones are
/// left out. "inherited" where all are.
[[nodiscard]] std::string weekText(const Week& week);
/// The week of a calendar. One without a base inherits nothing: what it does not tell are the default hours.
[[nodiscard]] std::string weekText(const Calendar& calendar);

} // namespace brackwater::inspect
