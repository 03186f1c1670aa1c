#include "MPPXMLDOMFilter/Corrections/BaseCalendars.h"
#include "MPPXMLDOMFilter/Corrections/CalendarHours.h"
#include "MPPXMLDOMFilter/Corrections/MinuteRanges.h"
#include "MPPXMLDOMFilter/Corrections/StandardWeek.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "support/ScopedTimeZone.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brackwater::test {
namespace {

constexpr std::int64_t kMonday = 20885; // 2027-03-08
constexpr auto kOff = MPPSourceEventKind::TimeOff;
constexpr auto kOver = MPPSourceEventKind::Overtime;
constexpr auto kHours = MPPSourceEventKind::Hours;

// An event with days counted from that Monday.
MPPSourceEvent event(MPPSourceEventKind kind, int firstDay, int lastDay, std::uint32_t start, std::uint32_t end) {
    return {kind, "E", kMonday + firstDay, kMonday + lastDay, start, end};
}

MPPDayRanges dayOf(const MinuteRanges& ranges) { return std::make_shared<MPPRangeList>(rangeListOf(ranges)); }

std::shared_ptr<MPPCalendar> calendarWithWeek() {
    auto calendar = std::make_shared<MPPCalendar>();
    calendar->defaultWorkWeek = std::make_shared<MPPCalendarWorkWeek>();
    for (std::size_t weekday = 0; weekday < 7; ++weekday)
        *calendar->defaultWorkWeek->days()[weekday] =
            dayOf(weekday == 0 || weekday == 6 ? MinuteRanges{} : MinuteRanges{{480, 720}, {780, 1020}});
    return calendar;
}

// "1-2 08:00-12:00 " for the days, counted from that Monday.
std::string textOf(const MPPCalendar& calendar) {
    const auto day = [](const std::optional<Date>& date) {
        return static_cast<std::int64_t>(date->secondsSince1970) / 86400 - kMonday;
    };
    std::string text;
    for (const auto& exception : calendar.exceptions)
        text += fmt::format("{}-{} {}; ", day(exception->startDate), day(exception->endDate),
                            descriptionOfRanges(&exception->workRanges));
    return text;
}

class CalendarCorrections : public testing::Test {
protected:
    CalendarCorrections() { project.standardCalendar = calendarWithWeek(); }

    MPPCalendar& addResourceCalendar() {
        auto calendar = std::make_shared<MPPCalendar>();
        calendar->baseCalendar.setRecord(project.standardCalendar);
        project.resources.push_back(std::make_shared<MPPResource>());
        project.resources.back()->calendar.setRecord(calendar);
        return *calendar;
    }

    ScopedTimeZone zone{"UTC"};
    MPPProject project;
};

TEST_F(CalendarCorrections, EventsBecomeTheRemainingHoursOfTheirDays) {
    struct Row {
        MPPCalendarSource events;
        const char* expected;
    };
    const std::vector<Row> rows = {
        {{event(kOff, 0, 0, 600, 660)}, "0-0 08:00-10:00 11:00-12:00 13:00-17:00 ; "},
        {{event(kOff, 0, 4, 0, 1440)}, "0-4 ; "},
        {{event(kOff, 0, 2, 840, 600)}, "0-0 08:00-12:00 13:00-14:00 ; 1-1 ; 2-2 10:00-12:00 13:00-17:00 ; "},
        {{event(kOver, 4, 5, 1080, 1200)}, "4-4 08:00-12:00 13:00-17:00 18:00-20:00 ; 5-5 18:00-20:00 ; "},
        {{event(kOver, 0, 0, 1000, 1200)}, "0-0 08:00-12:00 13:00-20:00 ; "},
        {{event(kOver, 0, 0, 1320, 1440), event(kOver, 1, 1, 0, 120)},
         "0-0 08:00-12:00 13:00-17:00 22:00-00:00 ; 1-1 00:00-02:00 08:00-12:00 13:00-17:00 ; "},
        {{event(kOff, 0, 0, 0, 1440), event(kOver, 0, 0, 600, 720)}, "0-0 10:00-12:00 ; "},
        {{event(kHours, 5, 5, 540, 600)}, "5-5 09:00-10:00 ; "},
        // Six ranges: the two closest are joined.
        {{event(kHours, 0, 0, 0, 60), event(kHours, 0, 0, 120, 180), event(kHours, 0, 0, 240, 300),
          event(kHours, 0, 0, 310, 360), event(kHours, 0, 0, 420, 480), event(kHours, 0, 0, 540, 600)},
         "0-0 00:00-01:00 02:00-03:00 04:00-06:00 07:00-08:00 09:00-10:00 ; "},
    };
    for (const Row& row : rows) {
        project.standardCalendar->source = std::make_shared<MPPCalendarSource>(row.events);
        correctCalendarHours(project);
        EXPECT_EQ(textOf(*project.standardCalendar), row.expected);
    }
}

TEST_F(CalendarCorrections, LongSpanOfHoursIsAWorkWeekAndLongTimeOffAnException) {
    project.standardCalendar->source = std::make_shared<MPPCalendarSource>(
        MPPCalendarSource{event(kOver, 0, 200, 1080, 1140), event(kOff, 300, 900000, 0, 1440)});
    correctCalendarHours(project);
    ASSERT_EQ(project.standardCalendar->workWeeks.size(), 1U);
    const MPPCalendarWorkWeek& week = *project.standardCalendar->workWeeks[0];
    EXPECT_EQ(descriptionOfRanges(week.mondayWorkRanges.get()), "08:00-12:00 13:00-17:00 18:00-19:00 ");
    EXPECT_EQ(descriptionOfRanges(week.sundayWorkRanges.get()), "18:00-19:00 ");
    EXPECT_EQ(week.endDate->secondsSince(*week.startDate), 201 * 86400.0 - 1);
    EXPECT_EQ(textOf(*project.standardCalendar), "300-49761 ; "); // until the format's last day
}

TEST_F(CalendarCorrections, TimeOffOfAResourceAddsNoHoursToADayOff) {
    project.standardCalendar->source =
        std::make_shared<MPPCalendarSource>(MPPCalendarSource{event(kOff, 0, 0, 0, 1440)});
    MPPCalendar& calendar = addResourceCalendar();
    calendar.source = std::make_shared<MPPCalendarSource>(MPPCalendarSource{event(kOff, 0, 1, 480, 600)});
    correctCalendarHours(project);
    EXPECT_EQ(textOf(calendar), "0-0 ; 1-1 10:00-12:00 13:00-17:00 ; ");
}

TEST_F(CalendarCorrections, WeekdayThatCrossesMidnightContinuesOnTheNextDay) {
    MPPCalendarWorkWeek& week = *project.standardCalendar->defaultWorkWeek;
    week.fridayWorkRanges = std::make_shared<MPPRangeList>(rangeListOf({{1320, 360}}));
    MPPCalendar& calendar = addResourceCalendar();
    calendar.defaultWorkWeek = std::make_shared<MPPCalendarWorkWeek>();
    calendar.defaultWorkWeek->mondayWorkRanges = std::make_shared<MPPRangeList>(rangeListOf({{1380, 60}}));
    correctCalendarHours(project);
    EXPECT_EQ(descriptionOfRanges(week.fridayWorkRanges.get()), "22:00-00:00 ");
    EXPECT_EQ(descriptionOfRanges(week.saturdayWorkRanges.get()), "00:00-06:00 ");
    EXPECT_EQ(descriptionOfRanges(calendar.defaultWorkWeek->tuesdayWorkRanges.get()),
              "00:00-01:00 08:00-12:00 13:00-17:00 ");
    EXPECT_EQ(calendar.defaultWorkWeek->wednesdayWorkRanges, nullptr);
}

TEST_F(CalendarCorrections, ExceptionsAreCountedAndNumberedAcrossCalendars) {
    const auto source =
        std::make_shared<MPPCalendarSource>(MPPCalendarSource{event(kOff, 0, 2, 0, 1440), event(kOff, 7, 7, 0, 1440)});
    project.standardCalendar->source = source;
    MPPCalendar& calendar = addResourceCalendar();
    calendar.source = source;
    correctCalendarHours(project);
    numberCalendarExceptions(project);
    EXPECT_EQ(project.standardCalendar->exceptions[0]->numberOfDays, 3);
    EXPECT_EQ(project.standardCalendar->exceptions[1]->numberOfDays, 1);
    EXPECT_EQ(project.standardCalendar->exceptions[1]->number, 2U);
    EXPECT_EQ(calendar.exceptions[0]->number, 3U);
}

TEST_F(CalendarCorrections, NamelessBaseCalendarsGetUniqueNames) {
    for (const char* name : {"", "Calendar 3", ""}) {
        project.baseCalendars.push_back(std::make_shared<MPPCalendar>());
        project.baseCalendars.back()->name = name;
        project.baseCalendars.back()->ID = 3;
    }
    nameBaseCalendars(project);
    EXPECT_EQ(project.baseCalendars[0]->name, "Calendar 3'");
    EXPECT_EQ(project.baseCalendars[1]->name, "Calendar 3");
    EXPECT_EQ(project.baseCalendars[2]->name, "Calendar 3''");
    correctDefaultCalendarBase(project);
    EXPECT_EQ(project.defaultResource()->calendar.record()->baseCalendar.record(), project.standardCalendar.get());
}

TEST_F(CalendarCorrections, DayHasTheMinutesOfMostWorkingDaysAndWeekOfAll) {
    project.standardCalendar->defaultWorkWeek->fridayWorkRanges = dayOf({{480, 840}});
    correctMinutesPerDay(project);
    EXPECT_EQ(project.minutesPerDay, 480U);
    EXPECT_EQ(project.minutesPerWeek, 4U * 480U + 360U);
}

} // namespace
} // namespace brackwater::test
