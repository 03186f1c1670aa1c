#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEScheduleInfo.h"
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

TEST(ScheduleInfo, DistinguishesNonWorkingFromInheritedDays) {
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

TEST(ScheduleInfo, RejectsADayTypeOutsideTheWeek) {
    MSPEScheduleInfo info;
    expectAssertion("Incorrect value of argument dayType (8).", [&] { info.resetWorkingTimesForDayType(8); });
    expectAssertion("Incorrect value of argument dayType (8).", [&] { info.removeWorkingTimesForDayType(8); });
    expectAssertion("Incorrect value of argument dayType (-1).", [&] { info.addWorkingTimeForDayType(kMorning, -1); });
    expectAssertion("Incorrect value of argument dayType (-1).", [&] { info.addWorkingTimesForDayType(nullptr, -1); });
    expectAssertion("Incorrect value of argument dayType (8).", [&] { (void)info.workingTimesForDayType(8); });
    info.resetWorkingTimesForDayType(0);
    EXPECT_TRUE(info.hasWeekDaysData());
}

} // namespace brackwater::test
