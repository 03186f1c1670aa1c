#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "support/ExpectException.h"

#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

TEST(Records, NewProjectHasTheDefaultResource) {
    const MPPProject project;
    const Guid guid(Guid::Bytes{0x7E, 0x8B, 0xCB, 0xA0, 0x8C, 0x2A, 0x6D, 0x43, 0, 0, 0, 0, 0, 0, 0, 0xFF});
    const MPPResource& resource = *project.defaultResource();
    EXPECT_EQ(resource.GUID(), guid);
    EXPECT_EQ(resource.ID, 0U);
    EXPECT_EQ(resource.calendar.record()->GUID(), guid);
    EXPECT_EQ(resource.calendar.record()->ID, 1U);
    EXPECT_EQ(resource.calendar.record()->baseCalendar.record(), project.standardCalendar.get());
    EXPECT_EQ(project.standardCalendar->name, "Standard");
    EXPECT_NE(project.standardCalendar->GUID(), guid);
    ASSERT_TRUE(project.summaryInfo);
    EXPECT_FALSE(project.summaryInfo->title);
    EXPECT_FALSE(project.calendar.record());
}

TEST(Records, IndexesOfAssignmentsAreBuiltOnce) {
    MPPProject project;
    const auto assignment = std::make_shared<MPPAssignment>();
    assignment->ID = 0x500000002; // found by its low 32 bits
    project.assignments = {assignment};
    EXPECT_EQ(project.idToAssignmentMap().at(2), assignment.get());
    EXPECT_EQ(project.assignmentIDsSet().count(2), 1U);
    const auto later = std::make_shared<MPPAssignment>();
    later->ID = 9;
    project.assignments.push_back(later);
    EXPECT_EQ(project.assignmentIDsSet().count(9), 0U);
    EXPECT_EQ(project.idToAssignmentMap().count(9), 0U);
}

TEST(Records, TimesOfDayLimitTheirFields) {
    MPPCalendarTime time;
    time.setHours(23);
    time.setMinutes(59);
    EXPECT_EQ(time.hours(), 23);
    time.setHours(24);
    EXPECT_EQ(time.hours(), 0) << "the end of the day";
    time.setMinutes(60);
    EXPECT_EQ(time.minutes(), 59);
}

TEST(Records, ReferenceIsUnsetAProxyOrARecord) {
    MPPTask task;
    TaskReference reference;
    EXPECT_TRUE(reference.isUnset());
    EXPECT_EQ(reference.record(), nullptr);
    reference.setProxyText("12");
    EXPECT_TRUE(reference.isProxy());
    EXPECT_EQ(reference.proxyText(), "12");
    EXPECT_EQ(reference.pointer(), nullptr);
    expectAssertion("Unresolved reference to the record with UID '12'.",
                    [&] { static_cast<void>(reference.record()); });
    reference.setRecord(&task);
    EXPECT_EQ(reference.record(), &task);
    EXPECT_FALSE(reference.isProxy());
    reference.setRecord(nullptr);
    EXPECT_TRUE(reference.isUnset());
}

TEST(Records, DescriptionOfACalendarListsItsWeeksAndExceptions) {
    auto base = std::make_shared<MPPCalendar>();
    base->ID = 3;
    MPPCalendar calendar;
    calendar.ID = 5;
    calendar.name = "Shift";
    calendar.baseCalendar.setRecord(base);
    EXPECT_EQ(calendar.description(), "<MPPCalendar>: ID=5 name=\"Shift\" isBaseCalendar=NO baseCalendar: ID=3\n"
                                      "  defaultWorkWeek: (null)\n  workWeeks=0\n  exceptions=0");

    auto week = std::make_shared<MPPCalendarWorkWeek>();
    auto exception = std::make_shared<MPPCalendarException>();
    exception->name = "Fair";
    calendar.isBaseCalendar = true;
    calendar.baseCalendar.clear();
    calendar.defaultWorkWeek = week;
    calendar.workWeeks = {week};
    calendar.exceptions = {exception, exception};
    const std::string fair = "<MPPCalendarException>: name='Fair' startDate=(null) endDate=(null) workRanges=0\n    ";
    EXPECT_EQ(calendar.description(), "<MPPCalendar>: ID=5 name=\"Shift\" isBaseCalendar=YES baseCalendar: <null>\n"
                                      "  defaultWorkWeek: " +
                                          week->description() +
                                          "\n  workWeeks=1\n  workWeek[0]: " + week->description() +
                                          "\n  exceptions=2\n  exception[0]: " + fair + "\n  exception[1]: " + fair);
}

} // namespace
} // namespace brackwater::test
