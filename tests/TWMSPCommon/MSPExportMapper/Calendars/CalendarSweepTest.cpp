#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarExceptions.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEEventSweep.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <tuple>

namespace brackwater::test {

namespace {

using Events = std::vector<MSPEZelbEventInfo>;
using Exceptions = std::vector<MSPEExceptionInfo>;

constexpr double kDay = 86400.0;

void sortByDates(Events& events) {
    std::stable_sort(events.begin(), events.end(), [](const auto& left, const auto& right) {
        return std::tuple(left.fromDate(), left.toDate()) < std::tuple(right.fromDate(), right.toDate());
    });
}

/// A naive sweep, step by step: every piece checks every event.
Exceptions sweepStepByStep(const Events& events) {
    Exceptions pieces;
    if (events.empty())
        return pieces;
    Date rangeStart = events.front().fromDate();
    Date rangeEnd = events.front().toDate();
    for (const auto& event : events) {
        rangeStart = std::min(rangeStart, event.fromDate());
        rangeEnd = std::max(rangeEnd, event.toDate());
    }
    Date cursor = rangeStart;
    while (cursor < rangeEnd) {
        Events active;
        Events upcoming;
        for (const auto& event : events)
            if (event.fromDate() > cursor)
                upcoming.push_back(event);
            else if (event.toDate() >= cursor)
                active.push_back(event);
        if (!active.empty()) {
            MSPEExceptionInfo piece(cursor, rangeEnd);
            for (const auto& event : active) {
                piece.setToDate(std::min(piece.toDate(), event.toDate()));
                if (event.hasTimeRange())
                    piece.workingTimes().emplace_back(event.start(), event.end());
            }
            bool cut = false;
            for (const auto& event : upcoming)
                if (event.fromDate() < piece.toDate()) {
                    piece.setToDate(event.fromDate());
                    cut = true;
                }
            if (cut)
                piece.setToDate(piece.toDate().advancedBy(-1.0));
            std::stable_sort(piece.workingTimes().begin(), piece.workingTimes().end(),
                             [](const auto& left, const auto& right) { return left.fromTime() < right.fromTime(); });
            pieces.push_back(piece);
            cursor = piece.toDate().advancedBy(1.0);
        } else {
            std::optional<Date> next;
            for (const auto& event : upcoming)
                if (!next || event.fromDate() < *next)
                    next = event.fromDate();
            cursor = next.value_or(rangeEnd);
        }
    }
    return pieces;
}

/// Joins adjacent exceptions with equal times until there are none.
Exceptions joinStepByStep(Exceptions exceptions) {
    for (std::size_t later = 1; later < exceptions.size();) {
        MSPEExceptionInfo& earlier = exceptions[later - 1];
        const bool touch = earlier.toDate().advancedBy(1.0) == exceptions[later].fromDate();
        if (touch && earlier.workingTimes() == exceptions[later].workingTimes()) {
            exceptions[later].setFromDate(earlier.fromDate());
            exceptions.erase(exceptions.begin() + static_cast<std::ptrdiff_t>(later) - 1);
        } else {
            ++later;
        }
    }
    return exceptions;
}

std::string shown(const Exceptions& exceptions) {
    std::string text;
    for (const auto& exception : exceptions) {
        text += fmt::format("{}-{}:", exception.fromDate().secondsSince1970, exception.toDate().secondsSince1970);
        for (const auto& workingTime : exception.workingTimes())
            text += fmt::format(" {}-{}", workingTime.fromTime(), workingTime.toTime());
        text += "\n";
    }
    return text;
}

class RandomCalendar {
public:
    explicit RandomCalendar(unsigned seed) : _random(seed) {}

    /// Events of whole days, some shifted by a clock change, some ending before they begin.
    Events ofDays() {
        return events([this] {
            const double from = number(0, 20) * kDay + number(0, 1) * 3600.0;
            const double to = from + number(-2, 8) * kDay + kDay - 1.0 - (number(0, 4) == 0 ? 3600.0 : 0.0);
            return std::pair(from, to);
        });
    }
    /// Events that begin, end and meet within a few seconds.
    Events ofSeconds() {
        return events([this] { return std::pair<double, double>(number(0, 30), number(0, 30)); });
    }

private:
    template <typename Span>
    Events events(Span span) {
        Events events;
        for (int count = number(0, 14); count > 0; --count) {
            const auto [from, to] = span();
            // Few different starts and ends, so that the order of equal events matters.
            if (number(0, 3) == 0)
                events.emplace_back(Date{from}, Date{to});
            else
                events.emplace_back(Date{from}, Date{to}, number(0, 4), 100.0 + number(0, 9));
        }
        return events;
    }
    int number(int lowest, int highest) { return std::uniform_int_distribution(lowest, highest)(_random); }

    std::mt19937 _random;
};

void expectAsStepByStep(Events events, unsigned seed) {
    MSPECalendarExceptions group("Group", true, events);
    group.mapEvents();
    sortByDates(events);
    const Exceptions expected = sweepStepByStep(events);
    EXPECT_EQ(shown(MSPEEventSweep(events).pieces()), shown(expected)) << "seed " << seed;
    EXPECT_EQ(shown(group.exceptions()), shown(joinStepByStep(expected))) << "seed " << seed;
}

} // namespace

TEST(CalendarSweep, AgreesWithANaiveSweepOnRandomCalendars) {
    for (unsigned seed = 0; seed < 6000 && !::testing::Test::HasFailure(); ++seed) {
        RandomCalendar calendar(seed);
        expectAsStepByStep(calendar.ofDays(), seed);
        expectAsStepByStep(calendar.ofSeconds(), seed);
    }
}

TEST(CalendarSweep, MapsManyEventsWithFewOverlaps) {
    Events events;
    for (int day = 0; day < 20000; ++day)
        events.emplace_back(Date{day * kDay}, Date{(day + 3) * kDay - 1.0}, 3600.0 * (day % 7), 3600.0 * (day % 7 + 1));
    MSPECalendarExceptions group("Group", true, events);
    group.mapEvents();

    ASSERT_EQ(group.exceptionsCount(), 20002);
    const MSPEExceptionInfo& middle = group.exceptions()[10000];
    EXPECT_EQ(middle.fromDate(), Date{10000 * kDay});
    EXPECT_EQ(middle.toDate(), Date{10001 * kDay - 1.0});
    EXPECT_EQ(middle.workingTimes().size(), 3U);
}

TEST(CalendarSweep, ManyEventsThatAllOverlapFail) {
    for (const int count : {400, 4000}) {
        Events events;
        for (int day = 0; day < count; ++day)
            events.emplace_back(Date{0.0}, Date{(day + 1) * kDay - 1.0}, 0.0, 3600.0);
        MSPECalendarExceptions group("Group", false, events);
        if (count == 400)
            EXPECT_NO_THROW(group.mapEvents());
        else
            EXPECT_THROW(group.mapEvents(), Exception);
    }
}

} // namespace brackwater::test
