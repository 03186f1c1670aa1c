#pragma once

#include "ProjectFile.h"

namespace brackwater::inspect {

/// Spans of days with what holds in them. Where spans overlap, the one that begins last holds.
template <typename Value>
class DayTable {
public:
    /// The value must outlive the table.
    void add(int firstDay, int lastDay, const Value& value) { _spans.push_back({firstDay, lastDay, &value}); }
    /// Needed before the first look.
    void arrange();
    /// Null where nothing was told.
    [[nodiscard]] const Value* find(int day) const;

private:
    struct Span {
        int first, last;
        const Value* value;
    };
    std::vector<Span> _spans;
};

/// The hours of each day by a calendar and those that it is derived from, which must outlive this.
class CalendarHours {
public:
    /// Adds the calendar itself, then its base, and so on.
    void add(const Calendar& calendar);
    /// Days that no calendar tells have the usual hours: from Monday to Friday, 8 to 12 and 13 to 17.
    [[nodiscard]] const std::vector<TimeRange>& on(int day) const;

private:
    struct Level {
        const Week* week = nullptr;
        DayTable<std::vector<TimeRange>> exceptions;
        DayTable<Week> workWeeks;
    };
    std::vector<Level> _levels;
};

/// Calls `take(span, exception)` for the days of a calendar's exceptions, in their order in the file: one span for one
/// that holds every day, one a day for one that recurs. Days beyond any real calendar's number of them are left out.
template <typename Take>
void forEachSpan(const std::vector<CalendarException>& exceptions, const Take& take) {
    std::size_t recurringDaysLeft = 200'000;
    for (const CalendarException& exception : exceptions) {
        if (!exception.recurrence) {
            take(DaySpan{exception.firstDay, exception.lastDay}, exception);
            continue;
        }
        for (const std::uint16_t day : daysOf(*exception.recurrence, exception.firstDay, exception.lastDay)) {
            if (recurringDaysLeft == 0)
                return;
            --recurringDaysLeft;
            take(DaySpan{day, day}, exception);
        }
    }
}

} // namespace brackwater::inspect
