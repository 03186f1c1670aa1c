#include "TWMSPCommon/WorkingTime/MSPEScheduleCalendar.h"

#include "Platform/Time/GregorianCalendar.h"
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/WorkingTime/WorkingTimeDates.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <utility>
#include <vector>

namespace brackwater {

void PrintTo(const Date& date, std::ostream* out) {
    const CivilTime time = GregorianCalendar::fieldsOfDate(date, 0);
    *out << time.year << '-' << time.month << '-' << time.day << 'T' << time.hour << ':' << time.minute << ':'
         << time.second;
}

namespace {

using test::expectAssertion;

enum Weekday : std::int64_t { Sunday = 1, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday };

/// A time in the week that begins on Sunday 2012-06-03; weekdays above 7 are in the next week.
Date at(std::int64_t weekday, std::int64_t hour = 0, std::int64_t minute = 0) {
    return GregorianCalendar::dateFromFields({2012, 6, 2 + weekday, hour, minute}, 0).value();
}

constexpr std::int64_t kNextWeek = 7;

class ScheduleCalendar : public testing::Test {
protected:
    static MSPEScheduleCalendar
    working(std::initializer_list<std::pair<Weekday, MSPEScheduleCalendar::TimePeriod>> days) {
        MSPEScheduleCalendar calendar;
        for (const auto& [weekday, period] : days)
            calendar.addWorkingTimePeriod(period, weekday);
        return calendar;
    }

    test::ScopedTimeZone zone{"UTC"};
    const MSPEScheduleCalendar& standard = MSPEScheduleCalendar::standardCalendar();
};

TEST_F(ScheduleCalendar, AdvancesOnlyThroughWorkingTime) {
    struct Case {
        const char* what;
        Date from;
        double duration;
        bool forward;
        Date withEdge, withoutEdge;
    };
    for (const Case& c : {
             Case{"an hour", at(Monday, 9), 3600, true, at(Monday, 10), at(Monday, 10)},
             {"over lunch", at(Monday, 11), 14400, true, at(Monday, 16), at(Monday, 16)},
             {"over the weekend", at(Friday, 16), 7200, true, at(kNextWeek + Monday, 9), at(kNextWeek + Monday, 9)},
             {"below a second", at(Monday, 12), 0.5, true, at(Monday, 13), at(Monday, 13)},
             {"to lunch", at(Monday, 8), 14400, true, at(Monday, 12), at(Monday, 13)},
             {"to the weekend", at(Friday, 13), 14400, true, at(Friday, 17), at(kNextWeek + Monday, 8)},
             {"back to the morning", at(Monday, 13), 14400, false, at(Monday, 8), at(Friday - 7, 17)},
             {"nothing on Saturday", at(Saturday, 10), 0, true, at(kNextWeek + Monday, 8), at(kNextWeek + Monday, 8)},
             {"nothing, backward", at(Saturday, 10), 0, false, at(Friday, 17), at(Friday, 17)},
             {"back over lunch", at(Monday, 14), 7200, false, at(Monday, 11), at(Monday, 11)},
             {"back to lunch", at(Monday, 17), 14400, false, at(Monday, 13), at(Monday, 12)},
             {"back over the weekend", at(Monday, 9), 7200, false, at(Friday - 7, 16), at(Friday - 7, 16)},
             {"a week", at(Monday, 8), 40 * 3600, true, at(Friday, 17), at(kNextWeek + Monday, 8)},
             {"and a bit", at(Monday, 8), 40 * 3600 + 60, true, at(kNextWeek + Monday, 8, 1),
              at(kNextWeek + Monday, 8, 1)},
             {"two weeks", at(Wednesday, 8), 80 * 3600, true, at(14 + Tuesday, 17), at(14 + Wednesday, 8)},
         }) {
        EXPECT_EQ(standard.dateAdvanceByDuration(c.from, c.duration, c.forward), c.withEdge) << c.what;
        EXPECT_EQ(standard.dateAdvanceByDuration(c.from, c.duration, c.forward, false), c.withoutEdge) << c.what;
    }
}

TEST_F(ScheduleCalendar, StopsTheSearchBeyondAnEdgeAfterAWeek) {
    // The two weeks end on a Friday, more than six days from their start, and Saturday is not a working day: the last
    // period's time is counted again from Monday.
    EXPECT_EQ(standard.dateAdvanceByDuration(at(Monday, 8), 80 * 3600, true, false), at(14 + Monday, 13));
}

TEST_F(ScheduleCalendar, AdvancesQuicklyOverThousandsOfYears) {
    const auto start = std::chrono::steady_clock::now();
    const double week = 40 * 3600;
    EXPECT_EQ(standard.dateAdvanceByDuration(at(Monday, 9), 60'000 * week, true),
              at(Monday, 9).advancedBy(60'000 * 7 * 86400.0));
    EXPECT_EQ(standard.dateAdvanceByDuration(at(Monday, 9), 1e7 * week, false),
              at(Monday, 9).advancedBy(-1e7 * 7 * 86400.0));
    for (const double tooLong : {1e14, 1e300, HUGE_VAL, std::nan("")})
        EXPECT_EQ(standard.dateAdvanceByDuration(at(Monday), tooLong, true), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST_F(ScheduleCalendar, RejectsInvalidAdvances) {
    expectAssertion("Date to advance from not specified.",
                    [this] { std::ignore = standard.dateAdvanceByDuration(std::nullopt, 1, true); });
    expectAssertion("Duration can not be negative. To specify backward advance use argument forward=NO.",
                    [this] { std::ignore = standard.dateAdvanceByDuration(at(Monday), -1, true); });
}

TEST_F(ScheduleCalendar, TerminatesIfPeriodsHaveNoLength) {
    const auto empty = working({{Monday, {9, 0, 0, 9, 0, 0}}, {Tuesday, {9, 0, 0, 9, 0, 0}}});
    EXPECT_EQ(empty.dateAdvanceByDuration(at(Monday, 8), 3600, true), std::nullopt);
    const auto backwards = working({{Monday, {17, 0, 0, 8, 0, 0}}});
    EXPECT_EQ(backwards.dateAdvanceByDuration(at(Monday, 7), 3600, true), std::nullopt);
}

TEST_F(ScheduleCalendar, RejectsADayWithFewerPeriodsThanTheFirst) {
    const auto calendar = working({{Monday, {8, 0, 0, 9, 0, 0}},
                                   {Monday, {10, 0, 0, 11, 0, 0}},
                                   {Monday, {12, 0, 0, 13, 0, 0}},
                                   {Tuesday, {8, 0, 0, 9, 0, 0}}});
    EXPECT_EQ(calendar.dateAdvanceByDuration(at(Monday, 10), 3 * 3600, true), at(Tuesday, 9));
    expectAssertion("Working day has no or too few working time periods.",
                    [&] { std::ignore = calendar.dateAdvanceByDuration(at(Monday, 12), 2 * 3600, true); });
}

TEST_F(ScheduleCalendar, SnapsADateToWorkingTime) {
    const auto start = [this](Date date, bool forward) { return standard.startForDate(date, forward).value(); };
    EXPECT_EQ(start(at(Monday, 9), true).date, at(Monday, 9));
    EXPECT_EQ(start(at(Monday, 7), true).date, at(Monday, 8));
    EXPECT_EQ(start(at(Monday, 12), true).date, at(Monday, 13)) << "a period's end moves on";
    EXPECT_EQ(start(at(Monday, 13), false).date, at(Monday, 12)) << "a period's start moves back";
    EXPECT_EQ(start(at(Friday, 17), true).date, at(kNextWeek + Monday, 8));
    const auto friday = start(at(Sunday + kNextWeek, 3), false);
    EXPECT_EQ(friday.date, at(Friday, 17));
    EXPECT_EQ(friday.secondsSinceMidnight, 17 * 3600.0);
    EXPECT_EQ(friday.timePeriodIndex, 1);
    EXPECT_EQ(standard.startDateForDate(at(Monday, 18), true), at(Tuesday, 8));
    EXPECT_EQ(MSPEScheduleCalendar().startDateForDate(at(Monday), true), std::nullopt);
    EXPECT_EQ(MSPEScheduleCalendar().dateAdvanceByDuration(at(Monday), 1, true), std::nullopt);
    const auto mondays = working({{Monday, {8, 0, 0, 9, 0, 0}}});
    EXPECT_EQ(mondays.startDateForDate(at(Tuesday), true), at(kNextWeek + Monday, 8));
    EXPECT_EQ(mondays.startDateForDate(at(Monday, 10), true), std::nullopt) << "seven days do not reach round";
}

TEST_F(ScheduleCalendar, SumsWorkingTimeBetweenDates) {
    EXPECT_EQ(standard.workingTimeFromDate(at(Monday, 9), at(Tuesday, 10)), 32400.0);
    EXPECT_EQ(standard.workingTimeFromDate(at(Monday, 9), at(Monday, 9)), 0.0);
    EXPECT_EQ(standard.workingTimeFromDate(at(Tuesday), at(Monday)), 0.0);
    EXPECT_EQ(standard.workingTimeFromDate(at(Sunday), at(kNextWeek + Sunday)), 40 * 3600.0);
    EXPECT_EQ(standard.workingTimeFromDate(at(Monday, 12, 10), at(Monday, 12, 50)), 0.0);
    EXPECT_EQ(standard.workingTimeFromDate(at(Monday, 11, 30), at(Monday, 13, 30)), 3600.0);
    EXPECT_EQ(MSPEScheduleCalendar().workingTimeFromDate(at(Monday), at(Friday)), 0.0);
}

TEST_F(ScheduleCalendar, StepsAcrossAClockChangeBy86400Seconds) {
    const test::ScopedTimeZone berlin("Europe/Berlin");
    const GregorianCalendar calendar;
    // The Friday before summer time begins; Monday's hours then count from 01:00.
    const Date friday = *calendar.dateFromFields({2012, 3, 23, 16});
    EXPECT_EQ(standard.dateAdvanceByDuration(friday, 7200, true), calendar.dateFromFields({2012, 3, 26, 10}));
}

TEST_F(ScheduleCalendar, HasSevenDaysWithPeriods) {
    EXPECT_EQ(standard.durationOfTimePeriod(1, Monday), 14400.0);
    for (const auto& [index, weekday] :
         {std::pair<std::int64_t, std::int64_t>{2, Monday}, {-1, Monday}, {0, Sunday}, {0, 0}, {0, 8}}) {
        EXPECT_EQ(standard.startTimeForTimePeriod(index, weekday), -1.0);
        EXPECT_EQ(standard.endOfTimePeriod(index, weekday), std::nullopt);
    }
    expectAssertion("Incorrect value of weekdey (0). Should be from 1 to 7.",
                    [this] { std::ignore = standard.isWorkingDayWeekday(0); });
    expectAssertion("Incorrect value of weekdey (8). Should be from 1 to 7.",
                    [] { MSPEScheduleCalendar().addWorkingTimePeriod({}, 8); });
}

TEST_F(ScheduleCalendar, ParsesAScheduleElement) {
    const auto document = XMLDocument::readText(
        "<schedule>"
        "<schedule-day day-of-week='monday'><time-span start-time='30600' end-time='43200.9'/>"
        "<time-span start-time='x' end-time='50000'/><time-span end-time='3661'/></schedule-day>"
        "<schedule-day day-of-week='Tuesday'><time-span start-time='0' end-time='3600'/></schedule-day>"
        "<schedule-day day-of-week='saturday'/><schedule-day/>"
        "<schedule-day day-of-week='sunday'><time-span start-time='1e300' end-time='-3661'/></schedule-day>"
        "</schedule>",
        "schedule");
    const MSPEScheduleCalendar calendar(document->rootElement());
    const std::vector<MSPEScheduleCalendar::TimePeriod> monday = {{8, 30, 0, 12, 0, 0}, {0, 0, 0, 1, 1, 1}};
    EXPECT_EQ(calendar.workingDay(Monday).timePeriods, monday);
    EXPECT_FALSE(calendar.isWorkingDayWeekday(Tuesday)) << "names are compared exactly";
    EXPECT_FALSE(calendar.isWorkingDayWeekday(Saturday));
    EXPECT_EQ(calendar.endOfTimePeriod(0, Sunday), (MSPEScheduleCalendar::TimeOfDay{-1, -1, -1}));
    EXPECT_EQ(calendar.startOfTimePeriod(0, Sunday)->hour, 2562047788015215);
}

TEST_F(ScheduleCalendar, MovesDatesOnlyByTheStandardWeek) {
    const test::LogCapture log;
    EXPECT_EQ(dateAdvancedByDuration(at(Monday, 9), 3600, true, nullptr), at(Monday, 10));
    EXPECT_EQ(dateAdvancedByDuration(at(Monday, 8), 14400, true, false, nullptr), at(Monday, 13));
    EXPECT_EQ(dateAdvancedByDuration(at(Monday, 9), 1e300, true, nullptr), at(Monday, 9)) << "no way there";
    EXPECT_TRUE(isWorkingDayInCalendar(at(Monday), nullptr));
    EXPECT_TRUE(log.lines().empty());
}

} // namespace
} // namespace brackwater
