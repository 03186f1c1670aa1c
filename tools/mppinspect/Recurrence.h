#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace brackwater::inspect {

/// How the days of a calendar's exception come back between its first and last day.
struct Recurrence {
    enum class Kind { Daily, Weekly, MonthlyByWeekday, MonthlyByDay, YearlyByWeekday, YearlyByDay };

    Kind kind = Kind::Daily;
    unsigned every = 1;       ///< days, weeks or months; 1 for years
    unsigned occurrences = 0; ///< how many days in all
    unsigned weekdays = 0;    ///< a bit a day, Sunday the lowest; one bit but for Weekly, none for Daily and ByDay
    unsigned ordinal = 0;     ///< which of the month's weekdays: 1 to 4, 5 for the last
    unsigned day = 0;         ///< of the month, from 1
    unsigned month = 0;       ///< of the year, from 1
};

/// The days of the recurrence between two days, both included, in their order. Days count from 1983-12-31. Weeks begin
/// on Sunday. At most as many days as the recurrence tells, and never more than a thousand.
[[nodiscard]] std::vector<std::uint16_t> daysOf(const Recurrence& recurrence, std::uint16_t first, std::uint16_t last);

/// "daily", "weekly", "monthly by weekday", "monthly by day", "yearly by weekday", "yearly by day"
[[nodiscard]] std::string kindText(Recurrence::Kind kind);
/// "every 2 weeks on Tue", "1st Mon of every 2 months", "last Fri of every month", "every Mar 2"
[[nodiscard]] std::string textOf(const Recurrence& recurrence);

} // namespace brackwater::inspect
