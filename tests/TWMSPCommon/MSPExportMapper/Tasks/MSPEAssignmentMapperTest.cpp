#include "support/MappedProject.h"
#include "support/ScopedTimeZone.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

using testing::Contains;
using testing::ElementsAre;

ScenarioBuilder taskWithResources(std::string_view items) {
    return ScenarioBuilder::withRoots("r1,r2,r3,r4,r5", "t1")
        .resource("r1", "type=Staff")
        .resource("r2", "type=Staff")
        .resource("r3", "type=Equipment")
        .resource("r4", "type=Material")
        .resource("r5", "type=Equipment")
        .task("t1", items);
}

std::vector<std::string> worksOf(std::string_view items) {
    const MappedProject project(taskWithResources(items));
    std::vector<std::string> works;
    for (std::size_t i = 0; i < project->assignments.size(); ++i)
        for (const auto& child : project.childrenOfAssignment(i))
            if (child.starts_with("Work="))
                works.push_back(child.substr(5));
    return works;
}

} // namespace

TEST(AssignmentMapper, ChildrenAreInTheOrderOfTheTarget) {
    const ScopedTimeZone zone("UTC");
    const MappedProject project(taskWithResources("effort=4000 effort-done=1000 assign=r1:0.50"));
    EXPECT_THAT(project.childrenOfAssignment(0),
                ElementsAre("UID=1", "TaskUID=1", "ResourceUID=1", "Milestone=0", "PercentWorkComplete=25",
                            "Units=0.50", "Work=PT1H6M40S", "RemainingWork=PT0H50M0S", "Start=2012-06-01T08:00:00",
                            "Finish=2012-06-01T17:00:00"));
    const MPPAssignment& assignment = *project->assignments.at(0);
    EXPECT_EQ(assignment.task.record(), project->tasks.at(1).get());
    EXPECT_EQ(assignment.resource.record(), project->resources.at(1).get());
    EXPECT_EQ(assignment.assignmentUnits, 5000.0);
    EXPECT_EQ(assignment.work, 1.0) << "whole hours";
}

TEST(AssignmentMapper, EachKindOfResourceSharesTheWholeEffort) {
    EXPECT_THAT(worksOf("effort=4000 assign=r1:1 assign=r2:3"), ElementsAre("PT0H16M40S", "PT0H50M0S"));
    EXPECT_THAT(worksOf("effort=3600 assign=r1:1 assign=r3:0.25"), ElementsAre("PT1H0M0S", "PT1H0M0S"));
    EXPECT_THAT(worksOf("effort=3600 assign=r3:0.25 assign=r5:0.75"), ElementsAre("PT0H15M0S", "PT0H45M0S"));
    EXPECT_THAT(worksOf("effort=3600 assign=r1:0.5"), ElementsAre("PT1H0M0S"));
}

TEST(AssignmentMapper, UnitsWithASumOfZeroShareNothing) {
    EXPECT_THAT(worksOf("effort=3600 assign=r1:0"), ElementsAre("PT1H0M0S"));
    EXPECT_THAT(worksOf("effort=3600 assign=r1:-1 assign=r2:1"), ElementsAre("PT1H0M0S", "PT1H0M0S"));
}

TEST(AssignmentMapper, MaterialIsAQuantityInHours) {
    const MappedProject project(taskWithResources("effort=0 assign=r4:2.5 assign=r1"));
    EXPECT_THAT(project.childrenOfAssignment(0), Contains("Work=PT2H30M0S"));
    EXPECT_THAT(project.childrenOfAssignment(0), Contains("RemainingWork=PT2H30M0S"));
    EXPECT_THAT(project.childrenOfAssignment(1), Contains("Work=PT0H0M0S"));
}

TEST(AssignmentMapper, MissingAndEmptyUnitsCountAsOne) {
    const MappedProject project(taskWithResources("effort=3600 assign=r1 assign=r2:"));
    EXPECT_THAT(project.childrenOfAssignment(0), Contains("Units=1"));
    EXPECT_THAT(project.childrenOfAssignment(1), Contains("Units=1"));
    EXPECT_THAT(project.childrenOfAssignment(1), Contains("Work=PT0H30M0S"));
    const MappedProject text(taskWithResources("assign=r1:1.500"));
    EXPECT_THAT(text.childrenOfAssignment(0), Contains("Units=1.500"));
}

TEST(AssignmentMapper, BaselineIsFoundByTaskAndResource) {
    const auto baseline = ScenarioBuilder::withRoots("", "").task("t1", "assign=r1").task("t2", "assign=r2").document();
    const MappedProject project(taskWithResources("assign=r1 assign=r2"), "", {baseline});
    EXPECT_EQ(project->assignments.at(0)->baselines.size(), 1U);
    EXPECT_EQ(project->assignments.at(1)->baselines.size(), 0U) << "that resource is on another task";
}

TEST(AssignmentMapper, FailsForUnknownOrUntypedResources) {
    expectMappingFails(taskWithResources("assign=r9"), "Failed to find assigned resourse (id='r9').");
    expectMappingFails(taskWithResources("assign=r9").resource("r9", "name=Nobody"),
                       "No type specified for assigned resourse (id='r9').");
    expectMappingFails(ScenarioBuilder::withRoots("", "t1").task("t1", "", "<assignment/>"),
                       "No Resource ID is associated witgh the Assignment.");
    expectMappingFails(ScenarioBuilder::withRoots("", "t1").task("t1", "", "<assignment idref=''/>"),
                       "No Resource ID is associated witgh the Assignment.");
}

// Such a task has the empty UID, which is valid once; only its assignments need an id.
TEST(AssignmentMapper, TaskWithAnEmptyIdFailsIfItHasAssignments) {
    auto scenario = ScenarioBuilder()
                        .resource("r-1", "type=Group child=r1")
                        .resource("r1", "type=Staff")
                        .task("t-1", "type=group", "<child-task idref=''/>");
    auto withDummy = scenario;
    const MappedProject project(withDummy.task(""));
    EXPECT_EQ(project->tasks.size(), 2U);
    expectMappingFails(scenario.task("", "assign=r1"), "No Task ID is associated witgh the Assignment.");
}

TEST(AssignmentMapper, GroupsAndResourcesOutsideTheTreeFailAtTheEnd) {
    expectMappingFails(taskWithResources("assign=r6").resource("r6", "type=Group"),
                       "Can not find Resource ID for Resource with UID='6' in the map.");
    expectMappingFails(taskWithResources("assign=r6").resource("r6", "type=Staff"),
                       "Can not find Resource ID for Resource with UID='6' in the map.");
    expectMappingFails(taskWithResources("assign=r-1"),
                       "Can not find Resource ID for Resource with UID='0' in the map.");
}

TEST(AssignmentMapper, ManyAssignmentsOnOneTaskTakeLinearTime) {
    std::string items = "effort=3600";
    constexpr std::size_t kMany = 20'000;
    for (std::size_t i = 0; i < kMany; ++i)
        items += " assign=r1";
    EXPECT_EQ(MappedProject(taskWithResources(items))->assignments.size(), kMany);
}

} // namespace brackwater::test
