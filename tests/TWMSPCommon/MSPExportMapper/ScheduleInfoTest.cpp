#include "Platform/XMLDocument.h"
#include "TWMSPCommon/MSPExportMapper/MSPECalendarExceptions.h"
#include "TWMSPCommon/MSPExportMapper/MSPEScheduleInfo.h"
#include "support/ExpectException.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pointee;

const MSPEWorkingTime kMorning(28800.0, 43200.0);
const MSPEWorkingTime kAfternoon(46800.0, 61200.0);

} // namespace

TEST(ScheduleInfo, SaysNothingOfTheWeekAtFirst) {
    const MSPEScheduleInfo info;
    EXPECT_FALSE(info.hasData());
    EXPECT_FALSE(info.hasWeekDaysData());
    EXPECT_FALSE(info.isBaseCalendar);
    for (std::int32_t dayType = 0; dayType <= 7; ++dayType)
        EXPECT_EQ(info.workingTimesForDayType(dayType), nullptr);
}

TEST(ScheduleInfo, IsABaseCalendarWithoutAParent) {
    const auto document = XMLDocument::readText("<resource id='r1'/>", "test");
    const XMLElement resource = document->rootElement();
    EXPECT_TRUE(MSPEScheduleInfo(resource, std::nullopt, 1, "Standard").isBaseCalendar);
    EXPECT_FALSE(MSPEScheduleInfo(resource, "r0", 2, "Crew").isBaseCalendar);
}

TEST(ScheduleInfo, TellsANonWorkingDayFromAnInheritedOne) {
    MSPEScheduleInfo info;
    EXPECT_TRUE(info.resetWorkingTimesForDayType(1).empty());
    EXPECT_TRUE(info.hasWeekDaysData());
    EXPECT_THAT(info.workingTimesForDayType(1), Pointee(IsEmpty()));
    info.removeWorkingTimesForDayType(1);
    EXPECT_EQ(info.workingTimesForDayType(1), nullptr);
    EXPECT_FALSE(info.hasData());
}

TEST(ScheduleInfo, AddsReplacesAndClearsADay) {
    MSPEScheduleInfo info;
    info.addWorkingTimeForDayType(kMorning, 3);
    info.addWorkingTimeForDayType(kAfternoon, 3);
    EXPECT_THAT(info.workingTimesForDayType(3), Pointee(ElementsAre(kMorning, kAfternoon)));
    const MSPEWorkingTimes other = {kAfternoon};
    info.addWorkingTimesForDayType(&other, 3);
    EXPECT_THAT(info.workingTimesForDayType(3), Pointee(ElementsAre(kAfternoon)));
    info.addWorkingTimesForDayType(nullptr, 3);
    EXPECT_EQ(info.workingTimesForDayType(3), nullptr);
}

TEST(ScheduleInfo, ProjectDefaultsAreTheDefaultWeekWithoutExceptions) {
    MSPEScheduleInfo info;
    info.addWorkingTimeForDayType(kMorning, 1);
    info.overtimeExceptions.push_back(
        std::make_shared<MSPECalendarExceptions>("Overtime", true, std::vector<MSPEZelbEventInfo>()));
    EXPECT_TRUE(info.hasOvertimeData());
    info.setProjetDefaults();

    EXPECT_TRUE(info.isBaseCalendar);
    EXPECT_FALSE(info.hasOvertimeData());
    for (const std::int32_t weekend : {1, 7})
        EXPECT_THAT(info.workingTimesForDayType(weekend), Pointee(IsEmpty()));
    for (std::int32_t workday = 2; workday <= 6; ++workday)
        EXPECT_THAT(info.workingTimesForDayType(workday), Pointee(ElementsAre(kMorning, kAfternoon)));
}

TEST(ScheduleInfo, FillsOnlyTheDaysThatAreNotNamed) {
    MSPEScheduleInfo info;
    info.resetWorkingTimesForDayType(3);
    info.addWorkingTimeForDayType(kMorning, 7);
    info.ensureProjetDefaultWeekDays();

    EXPECT_FALSE(info.isBaseCalendar);
    EXPECT_THAT(info.workingTimesForDayType(3), Pointee(IsEmpty()));
    EXPECT_THAT(info.workingTimesForDayType(7), Pointee(ElementsAre(kMorning)));
    EXPECT_THAT(info.workingTimesForDayType(1), Pointee(IsEmpty()));
    EXPECT_THAT(info.workingTimesForDayType(2), Pointee(ElementsAre(kMorning, kAfternoon)));
    EXPECT_EQ(info.workingTimesForDayType(0), nullptr);
}

TEST(ScheduleInfo, RefusesADayTypeOutsideTheWeek) {
    MSPEScheduleInfo info;
    expectAssertion("Incorrect value of argument dayType (8).", [&] { info.resetWorkingTimesForDayType(8); });
    expectAssertion("Incorrect value of argument dayType (8).", [&] { info.removeWorkingTimesForDayType(8); });
    expectAssertion("Incorrect value of argument dayType (-1).", [&] { info.addWorkingTimeForDayType(kMorning, -1); });
    expectAssertion("Incorrect value of argument dayType (-1).", [&] { info.addWorkingTimesForDayType(nullptr, -1); });
    expectAssertion("Incorrect value of argument dayType (8).", [&] { (void)info.workingTimesForDayType(8); });
    info.resetWorkingTimesForDayType(0);
    EXPECT_TRUE(info.hasWeekDaysData());
}

TEST(ScheduleInfo, DescribesItsDays) {
    MSPEScheduleInfo info;
    info.addWorkingTimeForDayType(kMorning, 2);
    info.resetWorkingTimesForDayType(3);
    EXPECT_THAT(info.description(),
                ::testing::AllOf(::testing::HasSubstr("resourceID=(null) "), ::testing::HasSubstr("hasData=YES"),
                                 ::testing::HasSubstr("\n  sunday (0): (null)\n  monday (1): <MSPEWorkingTime>: "
                                                      "[08:00:00-12:00:00] \n  tuesday (0): \n"),
                                 ::testing::EndsWith("\novertime (0): \ntimeOff (0): ")));
}

TEST(WorkingTime, EqualsByBothTimes) {
    EXPECT_EQ(kMorning, MSPEWorkingTime(28800.0, 43200.0));
    EXPECT_NE(kMorning, MSPEWorkingTime(28800.0, 43201.0));
    EXPECT_NE(kMorning, MSPEWorkingTime(28801.0, 43200.0));
}

} // namespace brackwater::test
