#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskMapper.h"

#include "support/MappedProject.h"
#include "support/ScopedTimeZone.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;

// A document with one task below the root.
ScenarioBuilder oneTask(std::string_view items, std::string_view xml = "") {
    return ScenarioBuilder::withRoots("", "t1").task("t1", items, xml);
}

std::vector<std::string> childrenOfOneTask(std::string_view items, std::string_view xml = "") {
    return MappedProject(oneTask(items, xml)).childrenOfTask(1);
}

} // namespace

TEST(TaskMapper, ChildrenAreInTheOrderOfTheTarget) {
    const ScopedTimeZone zone("UTC");
    const MappedProject project(oneTask("title=Walls effort=7200 effort-done=1800 static-cost=12.5 "
                                        "start-constraint-date=2012-06-02T00:00:00Z after=t2 splittable=no",
                                        "<note><text><p><run><lit>x</lit></run></p></text></note>"
                                        "<user-data><key>k</key><string>v</string></user-data>")
                                    .task("t2")
                                    .xml("<task id='t-2'><start-date>2012-06-01T08:00:00Z</start-date>"
                                         "<end-date>2012-06-01T08:00:00Z</end-date><duration>0</duration></task>")
                                    .task("t-1", "type=group child=t1,t2"),
                                "", {ScenarioBuilder::withRoots("", "t1").task("t1").document()});
    EXPECT_THAT(project.childrenOfTask(1),
                ElementsAre("UID=1", "ID=1", "Name=Walls", "Type=0", "IsNull=0", "Priority=500",
                            "Start=2012-06-01T08:00:00", "Finish=2012-06-01T17:00:00", "Duration=PT8H0M0S",
                            "Work=PT2H0M0S", "EffortDriven=1", "FixedCost=1250.00", "Estimated=0", "Milestone=0",
                            "Summary=0", "PercentComplete=25", "PercentWorkComplete=25", "ConstraintType=4",
                            "ConstraintDate=2012-06-02T00:00:00", "LevelingCanSplit=0", "IgnoreResourceCalendar=1",
                            "Notes  *", "PredecessorLink", "ExtendedAttribute  *", "Active=1", "Manual=0",
                            "Baseline  *", "OutlineLevel=1"));
    EXPECT_TRUE(project.logged("  Mapping 1 baselines for Task ..."));
    EXPECT_THAT(project.log(),
                IsSupersetOf({"  Mapping Top Task id='t-1' ...", "  Mapping Task id='t1' name='Walls' ..."}));
}

TEST(TaskMapper, MissingFieldsAreLeftOut) {
    const ScopedTimeZone zone("UTC");
    EXPECT_THAT(childrenOfOneTask(""),
                ElementsAre("UID=1", "ID=1", "Type=0", "IsNull=0", "Priority=500", "Start=2012-06-01T08:00:00",
                            "Finish=2012-06-01T17:00:00", "Duration=PT8H0M0S", "Work=PT0H0M0S", "EffortDriven=1",
                            "Estimated=0", "Milestone=0", "Summary=0", "LevelingCanSplit=1", "IgnoreResourceCalendar=1",
                            "Active=1", "Manual=0", "OutlineLevel=1"));
}

TEST(TaskMapper, EmptyOrOutOfRangeDateIsAbsent) {
    const MappedProject project(oneTask("start-date= end-date=99999999999999999999-01-01T00:00:00Z"));
    EXPECT_EQ(project->tasks.at(1)->startDate, std::nullopt);
    EXPECT_EQ(project->tasks.at(1)->endDate, std::nullopt);
    EXPECT_THAT(project.childrenOfTask(1), IsSupersetOf({"Start=(null)", "Finish=(null)"}));
}

TEST(TaskMapper, NameIsOnOneLine) {
    const MappedProject project(oneTask("", "<title>a&#13;\nb</title>"));
    EXPECT_EQ(project->tasks.at(1)->title, "a  b");
    EXPECT_THAT(project.log(), Contains("  Mapping Task id='t1' name='a\r\nb' ...")) << "the log shows it as it is";
}

TEST(TaskMapper, TypeDependsOnRecalculation) {
    const auto typeAndDriven = [](std::string_view items) {
        std::string found;
        for (const auto& child : childrenOfOneTask(items))
            if (child.starts_with("Type=") || child.starts_with("EffortDriven="))
                found += child + " ";
        return found;
    };
    EXPECT_EQ(typeAndDriven("recalculate=duration"), "Type=0 EffortDriven=1 ");
    EXPECT_EQ(typeAndDriven("recalculate=units"), "Type=2 EffortDriven=1 ");
    EXPECT_EQ(typeAndDriven("recalculate=effort"), "Type=1 EffortDriven=0 ");
    EXPECT_EQ(typeAndDriven("recalculate=something_else"), "EffortDriven=0 ");
    EXPECT_EQ(typeAndDriven("recalculate=units type=milestone"), "Type=2 EffortDriven=0 ");
    EXPECT_EQ(typeAndDriven("type=hammock"), "Type=0 EffortDriven=0 ");
    EXPECT_EQ(typeAndDriven("type=group"), "Type=0 EffortDriven=0 ");
}

TEST(TaskMapper, UnknownAndContradictoryRecalculationFails) {
    expectMappingFails(oneTask("recalculate=Duration"), "zelbRecalculate is undefined");
    expectMappingFails(oneTask("recalculate="), "zelbRecalculate is undefined");
    // The parsed task treats a repeated item as absent, but here the last one counts.
    expectMappingFails(oneTask("recalculate=units recalculate=effort"),
                       "Unexpected task recalculate value (0) in task info.");
}

TEST(TaskMapper, PrioritiesAreScaledByTheDocumentsRange) {
    const auto priorities = [](std::vector<std::string> sources) {
        auto scenario = ScenarioBuilder::withRoots("", "t1,t2,t3");
        for (std::size_t i = 0; i < 3; ++i)
            scenario.task("t" + std::to_string(i + 1), i < sources.size() ? "priority=" + sources[i] : "");
        const MappedProject project(scenario);
        std::vector<std::uint64_t> mapped;
        for (std::size_t i = 0; i < sources.size(); ++i)
            mapped.push_back(project->tasks.at(i + 1)->priority);
        return mapped;
    };
    EXPECT_THAT(priorities({"0"}), ElementsAre(500));
    EXPECT_THAT(priorities({"2", "10"}), ElementsAre(200, 1000));
    EXPECT_THAT(priorities({"-5", "0", "5"}), ElementsAre(0, 500, 1000));
    EXPECT_THAT(priorities({"500", "500", "500"}), ElementsAre(1000, 1000, 1000));
    EXPECT_THAT(priorities({"-3", "-1"}), ElementsAre(0, 666));
    EXPECT_THAT(priorities({"-9223372036854775808", "0", "9223372036854775807"}), ElementsAre(0, 500, 1000));
}

TEST(TaskMapper, PriorityRangeIncludesTasksOutsideTheTree) {
    const MappedProject project(oneTask("priority=5").task("t9", "priority=10"));
    EXPECT_EQ(project->tasks.at(1)->priority, 500U);
}

TEST(TaskMapper, OnlyAnExplicitNoForbidsSplitting) {
    EXPECT_THAT(childrenOfOneTask("splittable=no"), Contains("LevelingCanSplit=0"));
    EXPECT_THAT(childrenOfOneTask("splittable=0"), Contains("LevelingCanSplit=0"));
    EXPECT_THAT(childrenOfOneTask("splittable=maybe"), Contains("LevelingCanSplit=1"));
    EXPECT_THAT(childrenOfOneTask("splittable=no splittable=no"), Contains("LevelingCanSplit=1"));
    EXPECT_THAT(childrenOfOneTask("splittable=yes"), Contains("LevelingCanSplit=1"));
}

TEST(TaskMapper, LinksHavePredecessorTypeAndLag) {
    const MappedProject project(
        ScenarioBuilder::withRoots("", "t1,t2")
            .task("t2", "after=t1:FS:-86400 after=t1:SF:3600 after=t1:SS:0.5% after=t1:FF:0 after=t1:XX:5.9 after=t1")
            .task("t1"));
    ASSERT_EQ(project->constraints.size(), 6U);
    const auto link = [&](std::size_t i) {
        const MPPConstraint& constraint = *project->constraints[i];
        EXPECT_EQ(constraint.task1.record(), project->tasks.at(1).get());
        EXPECT_EQ(constraint.task2.record(), project->tasks.at(2).get());
        return std::tuple(constraint.constraintType, constraint.lag, constraint.isPercentage);
    };
    EXPECT_EQ(link(0), std::tuple(1, -14400.0, false));
    EXPECT_EQ(link(1), std::tuple(2, 600.0, false));
    EXPECT_EQ(link(2), std::tuple(3, 50.0, true));
    EXPECT_EQ(link(3), std::tuple(0, 0.0, false));
    EXPECT_EQ(link(4), std::tuple(1, 0.0, false)) << "less than a tenth of a minute is cut";
    EXPECT_EQ(link(5), std::tuple(1, 0.0, false));
    EXPECT_TRUE(project->honorConstraints);
}

TEST(TaskMapper, LinksMayLeadToThemselvesToGroupsAndInCycles) {
    const MappedProject project(
        ScenarioBuilder::withRoots("", "t1,t2").task("t1", "after=t1 after=t2 after=t-1").task("t2", "after=t1"));
    ASSERT_EQ(project->constraints.size(), 4U);
    EXPECT_EQ(project->constraints[0]->task1.record(), project->constraints[0]->task2.record());
    EXPECT_EQ(project->constraints[2]->task1.record(), project->tasks.at(0).get());
}

TEST(TaskMapper, LinkToATaskOutsideTheTreeFails) {
    expectMappingFails(oneTask("after=t9").task("t9"), "Can not find Task ID for Task with UID='9' in the map.");
    expectMappingFails(oneTask("after=t8"), "Can not find Task ID for Task with UID='8' in the map.");
    expectMappingFails(oneTask("after=x8"), "Invalid format of ZELB Task ID (must begin with 't'): x8");
}

TEST(TaskMapper, LinkWithoutAPredecessorKeepsItsSuccessor) {
    const MappedProject project(oneTask("", "<prerequisite-task/>"));
    ASSERT_EQ(project->constraints.size(), 1U);
    EXPECT_TRUE(project->constraints[0]->task1.isUnset());
    EXPECT_EQ(project->constraints[0]->task2.record(), project->tasks.at(1).get());
}

TEST(TaskMapper, DuplicateUidFailsAfterItsIdWasUsedAndLogged) {
    // Two different ids without a positive number share the empty UID.
    const auto scenario = ScenarioBuilder::withRoots("", "t0,t-2").task("t0").task("t-2");
    const LogCapture log;
    MSPEMapper mapper(scenario.document(), tableOfContents(), {}, std::nullopt);
    expectAssertion("Duplicated Task UID='' found (zelb Task id='t-2').", [&] { mapper.map(); });
    EXPECT_EQ(log.lines().back(), "        Task /ID =\"2\"");
}

TEST(TaskMapper, TaskReachedTwiceFailsAndCyclesTerminate) {
    expectMappingFails(ScenarioBuilder::withRoots("", "t1,t1").task("t1"),
                       "Duplicated Task UID='1' found (zelb Task id='t1').");
    expectMappingFails(
        ScenarioBuilder::withRoots("", "t1").task("t1", "type=group child=t2").task("t2", "type=group child=t1"),
        "Duplicated Task UID='1' found (zelb Task id='t1').");
    expectMappingFails(ScenarioBuilder::withRoots("", "t-1"), "Duplicated Task UID='0' found (zelb Task id='t-1').");
}

TEST(TaskMapper, ProgressAboveOneFailsOnlyForAMappedTask) {
    expectMappingFails(oneTask("effort=1 effort-done=2"),
                       "Incorrect value of percentComplete (2.000000). Must be from 0.0 to 1.0.");
    EXPECT_EQ(MappedProject(oneTask("").task("t9", "effort=1 effort-done=2"))->tasks.size(), 2U);
}

TEST(TaskMapper, MapperOutsideAMappingHasNoScheduledTasks) {
    const auto document = oneTask("").document();
    MSPEMapper mapper(document, tableOfContents(), {}, std::nullopt);
    expectAssertion("Can not get scheduled tasks from project mapper.", [&] {
        static_cast<void>(MSPETaskMapper(&mapper).newTaskFromZELBTask(
            document->rootElement().objectsForXQuery("task").at(1), std::nullopt));
    });
}

} // namespace brackwater::test
