#include "MPPXMLDOMFilter/Adapters/MSPEXMLCalendarAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLWeekDaysAdapter.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

std::shared_ptr<MSPEXMLWeekDayAdapter> weekDay(const char* dayType) {
    auto day = MSPEXMLWeekDayAdapter::elementWithName("WeekDay", nullptr);
    day->addChildElementWithName("DayType", dayType);
    return day;
}

std::shared_ptr<MSPEXMLAdapter> addWorkingTime(MSPEXMLAdapter& element, const char* from, const char* to) {
    auto workingTime = element.addChildElementWithName("WorkingTimes")->addChildElementWithName("WorkingTime");
    workingTime->addChildElementWithName("FromTime", from);
    workingTime->addChildElementWithName("ToTime", to);
    return workingTime;
}

std::shared_ptr<MSPEXMLTimePeriodAdapter> timePeriod(ElementText from, ElementText to) {
    auto period = MSPEXMLTimePeriodAdapter::elementWithName("TimePeriod", nullptr);
    period->addChildElementWithName("FromDate", from);
    period->addChildElementWithName("ToDate", to);
    return period;
}

std::string clock(ElementText text) {
    const auto time = MSPEXMLWorkingTimeAdapter::newMppCalendarTimeFromMspdiTime(text);
    return time ? std::to_string(time->hours()) + ":" + std::to_string(time->minutes()) : "none";
}

} // namespace

TEST(WorkingTimeAdapter, FindsAClockTextAnywhereInItsText) {
    EXPECT_EQ(clock("08:30:45"), "8:30");
    EXPECT_EQ(clock("24:00:00"), "0:0");
    EXPECT_EQ(clock("23:75:00"), "23:59");
    EXPECT_EQ(clock("-01:30:00"), "1:30");
    EXPECT_EQ(clock("::"), "0:0");
    EXPECT_EQ(clock("7::"), "7:0");
    EXPECT_EQ(clock("1:x 9:05:"), "9:5");
    EXPECT_EQ(clock("4:5:6:7"), "4:5");
}

TEST(WorkingTimeAdapter, TruncatesNumbersToEightBits) {
    EXPECT_EQ(clock("264:257:00"), "8:1");
    EXPECT_EQ(clock("99999999999999999999:256:00"), "0:0");
}

TEST(WorkingTimeAdapter, HasNoTimeIfTheTextIsNotAClockText) {
    EXPECT_EQ(clock("garbage"), "none");
    EXPECT_EQ(clock("08:30"), "none");
    EXPECT_EQ(clock("08:3 0:"), "none");
    EXPECT_EQ(clock(""), "none");
    EXPECT_EQ(clock(std::nullopt), "none");
}

TEST(WeekDaysAdapter, StoresEachDayByItsType) {
    const auto weekDays = MSPEXMLWeekDaysAdapter::elementWithName("WeekDays", nullptr);
    for (const char* dayType : {"1", "2", "3", "4", "5", "6", "7"}) {
        const auto day = weekDay(dayType);
        addWorkingTime(*day, (std::string(dayType) + ":00:00").c_str(), "12:00:00");
        weekDays->addChild(day);
    }
    const auto days = weekDays->mppDomObject()->days();
    for (std::size_t day = 0; day < days.size(); ++day) {
        ASSERT_TRUE(*days[day]);
        EXPECT_EQ((*days[day])->front()->start->hours(), day + 1);
    }
}

TEST(WeekDaysAdapter, ReplacesOnlyEmptyDays) {
    const auto weekDays = MSPEXMLWeekDaysAdapter::elementWithName("WeekDays", nullptr);
    weekDays->addChild(weekDay("2"));
    const auto monday = weekDay("2");
    addWorkingTime(*monday, "08:00:00", "12:00:00");
    weekDays->addChild(monday);
    EXPECT_EQ(weekDays->mppDomObject()->mondayWorkRanges, monday->mppDomObject());
    expectAssertion("Expected MPPCalendarWorkWeek.mondayWorkRanges to be nil",
                    [&] { weekDays->addChild(weekDay("2")); });

    const auto saturday = weekDay("7");
    addWorkingTime(*saturday, "08:00:00", "12:00:00");
    weekDays->addChild(saturday);
    expectAssertion("Expected MPPCalendarWorkWeek.saturdayWorkRanges to be nil",
                    [&] { weekDays->addChild(weekDay("7")); });
}

TEST(WeekDaysAdapter, RejectsInvalidDaysOfTheWeek) {
    const auto weekDays = MSPEXMLWeekDaysAdapter::elementWithName("WeekDays", nullptr);
    expectAssertion("Unexpected WeekDay dayType: 0", [&] { weekDays->addChild(weekDay("0")); });
    expectAssertion("Unexpected WeekDay dayType: 8", [&] { weekDays->addChild(weekDay("8")); });
    expectAssertion("Unexpected WeekDay dayType: -1",
                    [&] { weekDays->addChild(MSPEXMLWeekDayAdapter::elementWithName("WeekDay", nullptr)); });
    expectAssertion("Unexpected 'child' argument class: MSPEXMLNotesAdapter",
                    [&] { weekDays->addChild(MSPEXMLNotesAdapter::elementWithName("WeekDay", nullptr)); });
    expectAssertion("Unexpected 'child' argument class: (null)", [&] { weekDays->addChild(nullptr); });
    weekDays->addChild(MSPEXMLNotesAdapter::elementWithName("Elsewhere", nullptr));
    EXPECT_FALSE(weekDays->mppDomObject()->definesAnyDay());
}

TEST(WeekDayAdapter, AcceptsWorkingTimesInBothForms) {
    const auto day = weekDay("3");
    day->addChildElementWithName("DayWorking", "1");
    EXPECT_EQ(day->addChildElementWithName("WorkingTimes"), day);
    addWorkingTime(*day, "08:00:00", "12:00:00");
    const auto given = MSPEXMLWorkingTimeAdapter::elementWithName("WorkingTime", nullptr);
    given->addChildElementWithName("FromTime", "13:00:00");
    given->addChildElementWithName("ToTime", "garbage");
    day->addChild(given);
    day->addChild(timePeriod("2012-06-01T00:00:00", "2012-06-01T23:59:59"));

    EXPECT_EQ(day->dayType(), 3);
    EXPECT_TRUE(day->dayWorking());
    ASSERT_EQ(day->mppDomObject()->size(), 2U);
    EXPECT_EQ(day->mppDomObject()->back()->start->hours(), 13);
    EXPECT_FALSE(day->mppDomObject()->back()->end);
    expectAssertion("Received adapter of incorect class 'MSPEXMLNotesAdapter'",
                    [&] { day->addChild(MSPEXMLNotesAdapter::elementWithName("WorkingTime", nullptr)); });
}

TEST(ExceptionAdapter, WarnsOfOtherTypesAndContinues) {
    const LogCapture log;
    const auto element = MSPEXMLExceptionAdapter::elementWithName("Exception", nullptr);
    element->addChildElementWithName("Type", "1");
    EXPECT_TRUE(log.lines().empty());
    element->addChildElementWithName("Type", "2");
    EXPECT_EQ(log.joined(), "WARNING: Calendar Exception type 2 not supported.\n");
}

TEST(ExceptionAdapter, RejectsOtherChildren) {
    const auto element = MSPEXMLExceptionAdapter::elementWithName("Exception", nullptr);
    expectAssertion("Unexpected value of 'EnteredByOccurrences' property ('true'). Boolen value must be NO.",
                    [&] { element->addChildElementWithName("EnteredByOccurrences", "true"); });
    expectAssertion("Set dates in TimePeriod before adding it to Exception.",
                    [&] { element->addChild(timePeriod("2012-06-01T00:00:00", std::nullopt)); });
    expectAssertion("Received adapter of incorect class 'MSPEXMLNotesAdapter'",
                    [&] { element->addChild(MSPEXMLNotesAdapter::elementWithName("WorkingTime", nullptr)); });
    EXPECT_FALSE(element->mppDomObject()->startDate);
}

TEST(WorkWeekAdapter, NeedsItsWeekDaysFirstAndOnce) {
    const auto element = MSPEXMLWorkWeekAdapter::elementWithName("WorkWeek", nullptr);
    expectAssertion("Add WeekDays to WorkWeek before any other element!",
                    [&] { element->addChildElementWithName("Name", "Exception days"); });
    expectAssertion("Add WeekDays to WorkWeek before any other element!",
                    [&] { element->addChild(timePeriod("2012-06-01T00:00:00", "2012-06-02T23:59:59")); });

    element->addChildElementWithName("WeekDays")->addChild(weekDay("6"));
    expectAssertion("Added extra WeekDays element to WorkWeek.",
                    [&] { (void)element->addChildElementWithName("WeekDays"); });
    expectAssertion("Set dates in TimePeriod before adding it to WorkWeek.",
                    [&] { element->addChild(timePeriod(std::nullopt, "2012-06-02T23:59:59")); });
    element->addChild(timePeriod("2012-06-01T00:00:00", "2012-06-02T23:59:59"));
    element->addChildElementWithName("Name", "Exception days");

    const MPPCalendarWorkWeek& week = *element->mppDomObject();
    EXPECT_EQ(week.startDate, MSPIUtilities::mspdiToMppDateTime("2012-06-01T00:00:00"));
    EXPECT_EQ(week.endDate, MSPIUtilities::mspdiToMppDateTime("2012-06-02T23:59:59"));
    EXPECT_EQ(week.name, "Exception days");
    ASSERT_NE(week.fridayWorkRanges, nullptr);
    EXPECT_TRUE(week.fridayWorkRanges->empty());
}

} // namespace brackwater::test
