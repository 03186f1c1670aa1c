#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "support/ExpectException.h"

#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

TEST(Records, ATaskWithoutRelationsReportsAllOnesIn32Bits) {
    const MPPTask task;
    EXPECT_EQ(task.parentTaskID(), 0xFFFFFFFFU);
    EXPECT_EQ(task.calendarID(), 0xFFFFFFFFU);
    EXPECT_EQ(task.priority, 500U);
    EXPECT_TRUE(task.estimated);
}

TEST(Records, ATaskReportsTheIDsOfItsRelations) {
    MPPTask parent;
    parent.ID = 7;
    const auto calendar = std::make_shared<MPPCalendar>();
    calendar->ID = 3;
    MPPTask task;
    task.parent = &parent;
    task.calendar.setRecord(calendar);
    EXPECT_EQ(task.parentTaskID(), 7U);
    EXPECT_EQ(task.calendarID(), 3U);
}

TEST(Records, FixedAnswersIgnoreFieldsOfTheSameName) {
    MPPTask task;
    task.startDate = Date{100};
    task.endDate = Date{200};
    task.actualStart = task.stop = task.resume = Date{300};
    task.percentageComplete = 40;
    EXPECT_EQ(task.getEarlyStart(), Date{100});
    EXPECT_EQ(task.getLateStart(), Date{100});
    EXPECT_EQ(task.getEarlyFinish(), Date{200});
    EXPECT_EQ(task.getLateFinish(), Date{200});
    EXPECT_EQ(task.getActualStart(), std::nullopt);
    EXPECT_EQ(task.getStop(), std::nullopt);
    EXPECT_EQ(task.getResume(), std::nullopt);
    EXPECT_EQ(task.getPercentageComplete(), 0U);
    EXPECT_EQ(task.getFixedCostAccrual(), 3);
}

TEST(Records, TheProjectAnswersTwoQuestionsOtherwiseThanATask) {
    const MPPProject project;
    const MPPTask& row = project;
    EXPECT_TRUE(row.getSplits());
    EXPECT_FALSE(row.getEffortDriven());
    EXPECT_FALSE(MPPTask().getSplits());
    EXPECT_TRUE(MPPTask().getEffortDriven());
    EXPECT_EQ(row.taskType, 1);
    EXPECT_EQ(MPPTask().taskType, 0);
}

TEST(Records, ANewProjectHasTheRecordOfWorkWithoutAResource) {
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

TEST(Records, AResourceScalesUnitsAndCostButNotItsRate) {
    MPPResource resource;
    EXPECT_EQ(resource.getMaxUnits(), 10000.0);
    resource.costPerUse = 2.5;
    resource.standartRate = 3.5;
    EXPECT_EQ(resource.getCostPerUse(), 250.0);
    EXPECT_EQ(resource.getStandartRate(), 3.5);
}

TEST(Records, TextFieldsOfAResourceCountFromOne) {
    MPPResource resource;
    EXPECT_FALSE(resource.hasCustomFieldText(1));
    resource.customFieldsText = {"", "x"};
    EXPECT_FALSE(resource.hasCustomFieldText(0));
    EXPECT_FALSE(resource.hasCustomFieldText(1));
    EXPECT_TRUE(resource.hasCustomFieldText(2));
    EXPECT_FALSE(resource.hasCustomFieldText(3));
    EXPECT_FALSE(resource.hasGroup());
    resource.group = "";
    EXPECT_TRUE(resource.hasGroup()) << "an empty text is present";
}

TEST(Records, KindsOfResourcesSetTwoFields) {
    MPPResource resource;
    EXPECT_EQ(resource.getResourceType(), 0U);
    resource.setResourceTypeCost();
    EXPECT_EQ(resource.getResourceType(), 1U);
    EXPECT_TRUE(resource.isCostResource());
    resource.setResourceTypeMaterial();
    EXPECT_EQ(resource.getResourceType(), 1U);
    EXPECT_FALSE(resource.isCostResource());
    resource.setResourceTypeWork();
    EXPECT_EQ(resource.getResourceType(), 0U);
}

TEST(Records, TheIndexesOfAssignmentsAreBuiltOnce) {
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

TEST(Records, TimesOfDayGuardTheirFields) {
    MPPCalendarTime time;
    time.setHours(23);
    time.setMinutes(59);
    EXPECT_EQ(time.hours(), 23);
    time.setHours(24);
    EXPECT_EQ(time.hours(), 0) << "the end of the day";
    time.setMinutes(60);
    EXPECT_EQ(time.minutes(), 59);
}

TEST(Records, AReferenceIsUnsetAProxyOrARecord) {
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

TEST(Records, DescriptionsNameRelatedRecordsByTheirIDs) {
    MPPTask parent;
    parent.ID = 3;
    MPPTask task;
    task.ID = 4;
    task.title = "Dig";
    task.outlineLevel = 2;
    EXPECT_EQ(task.description(), "<MPPTask>: ID=4 title=\"Dig\" outlineLevel=2 parent: <null>");
    task.parent = &parent;
    EXPECT_EQ(task.description(), "<MPPTask>: ID=4 title=\"Dig\" outlineLevel=2 parent: ID=3");

    MPPResource resource;
    resource.ID = 5;
    resource.setResourceTypeMaterial();
    EXPECT_EQ(resource.description(),
              "<MPPResource>: ID=5 name=\"(null)\" group=\"(null)\" type=1 (Material) calendar: <null>");

    MPPAssignment assignment;
    assignment.task.setRecord(&task);
    EXPECT_EQ(assignment.description(), "<MPPAssignment>: ID=0 task: ID=4 resource: <null>");

    MPPConstraint link;
    link.task1.setRecord(&task);
    link.constraintType = 1;
    EXPECT_EQ(link.description(),
              "<MPPConstraint>: task1.ID=4 task2=<null> constraintType=1 (FS) lag=0.000000 isPercentage=NO");
    link.constraintType = 4;
    EXPECT_NE(link.description().find(" (?"
                                      "?) "),
              std::string::npos);
}

TEST(Records, ADescribedWeekTellsAbsentDaysFromFreeOnes) {
    MPPCalendarWorkWeek week;
    EXPECT_FALSE(week.definesAnyDay());
    week.mondayWorkRanges = std::make_shared<MPPRangeList>();
    EXPECT_TRUE(week.definesAnyDay()) << "a free day is defined";
    auto range = std::make_shared<MPPCalendarTimeRange>();
    range->start.emplace().setHours(8);
    range->end.emplace().setHours(12);
    week.tuesdayWorkRanges = std::make_shared<MPPRangeList>(MPPRangeList{range, range});
    const std::string text = week.description();
    EXPECT_NE(text.find("sunday: <null>"), std::string::npos) << text;
    EXPECT_NE(text.find("monday: \n"), std::string::npos) << text;
    EXPECT_NE(text.find("tuesday: 08:00-12:00 08:00-12:00 "), std::string::npos) << text;
    EXPECT_EQ(range->description(), "<MPPCalendarTimeRange>: start=08:00 end=12:00");
}

TEST(Records, ADescribedCalendarListsItsWeeksAndExceptions) {
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
