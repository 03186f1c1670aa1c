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
    /// Without a calendar, the usual hours.
    explicit CalendarHours(const Calendar* calendar = nullptr);
    void deriveFrom(const CalendarHours& base) { _base = &base; }
    /// Days that no calendar tells have the usual hours: from Monday to Friday, 8 to 12 and 13 to 17.
    [[nodiscard]] const std::vector<TimeRange>& on(int day) const;

    /// Of real calendars only those of resources have a base; more levels than these, circles among them, do not count.
    static constexpr int kMostLevels = 8;

private:
    [[nodiscard]] const DayRanges* ofWeek(int day) const;

    const Week* _week = nullptr;
    const CalendarHours* _base = nullptr;
    DayTable<std::vector<TimeRange>> _exceptions;
    DayTable<Week> _workWeeks;
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
