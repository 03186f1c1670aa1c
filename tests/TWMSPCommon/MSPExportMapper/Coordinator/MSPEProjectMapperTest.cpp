#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/MappedProject.h"
#include "support/ScopedTimeZone.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

using testing::ElementsAre;

std::vector<std::string> groupsOf(const ScenarioBuilder& scenario) {
    const MappedProject project(scenario);
    std::vector<std::string> groups;
    for (std::size_t i = 1; i < project->resources.size(); ++i)
        groups.push_back(project->resources[i]->group.value_or("(none)"));
    return groups;
}

bool isNow(std::optional<Date> date) { return date && std::abs(Date::now().secondsSince(*date)) < 60; }

} // namespace

TEST(ProjectMapper, HeaderReachesTheProject) {
    const ScopedTimeZone zone("Europe/Berlin");
    const MappedProject project(
        ScenarioBuilder::withRoots().item("start-date=2012-06-01T08:00:00Z end-date=2012-07-01T08:00:00Z"),
        "<title>A house\nfor two</title><currency-format>1,0.0 kr</currency-format>");
    EXPECT_EQ(project->title, "A house\nfor two") << "a title keeps its lines";
    EXPECT_EQ(project->summaryInfo->title, "A house\nfor two");
    EXPECT_EQ(project->startDate, MSPIUtilities::zelbToMppDateTime("2012-06-01T08:00:00Z"));
    EXPECT_EQ(project->endDate, MSPIUtilities::zelbToMppDateTime("2012-07-01T08:00:00Z"));
    EXPECT_TRUE(project->scheduleFromStart);
    EXPECT_EQ(project->currencyDigits, 1U);
    EXPECT_EQ(project->currencySymbol, "kr");
    EXPECT_EQ(project->currencyCode, "SEK");
    EXPECT_EQ(project->currencySymbolPosition, 3);
    EXPECT_EQ(project->weekStartDay, 0);
    EXPECT_EQ(project->calendar.record(), project->standardCalendar.get());
    EXPECT_EQ(project->standardCalendar->ID, 1U);
}

TEST(ProjectMapper, MissingDateIsNowOnTheSideOfScheduling) {
    const MappedProject fromStart(ScenarioBuilder::withRoots());
    EXPECT_TRUE(fromStart->scheduleFromStart);
    EXPECT_TRUE(isNow(fromStart->startDate));
    EXPECT_EQ(fromStart->endDate, std::nullopt);

    const MappedProject fromEnd(ScenarioBuilder::withRoots().rootAttribute("fixed-end='yes'"));
    EXPECT_FALSE(fromEnd->scheduleFromStart);
    EXPECT_EQ(fromEnd->startDate, std::nullopt);
    EXPECT_TRUE(isNow(fromEnd->endDate));

    const MappedProject unclear(ScenarioBuilder::withRoots().rootAttribute("fixed-end='perhaps'"));
    EXPECT_TRUE(unclear->scheduleFromStart);
}

TEST(ProjectMapper, TasksComeDepthFirstWithTheirAssignmentsAndLevels) {
    const MappedProject project(ScenarioBuilder::withRoots("", "t1,t4,t9")
                                    .task("t3", "title=c")
                                    .task("t4", "title=d")
                                    .task("t1", "type=group title=a child=t2,t3")
                                    .task("t2", "type=group title=b"));
    std::vector<std::string> tree;
    for (const auto& task : project->tasks)
        tree.push_back(std::to_string(task->ID) + task->title.value_or("-") + std::to_string(task->outlineLevel) +
                       (task->parent ? std::to_string(task->parent->ID) : "-"));
    EXPECT_THAT(tree, ElementsAre("0-0-", "1a10", "2b21", "3c21", "4d10"));
    EXPECT_EQ(project->assignments.size(), 2U) << "a group without resources gets no dummy assignment";
}

TEST(ProjectMapper, OnlyGroupsHaveChildren) {
    const MappedProject project(ScenarioBuilder::withRoots("r1", "t1")
                                    .resource("r1", "type=Staff child=r2")
                                    .resource("r2", "type=Staff")
                                    .task("t1", "type=task child=t2")
                                    .task("t2"));
    EXPECT_EQ(project->tasks.size(), 2U);
    EXPECT_EQ(project->resources.size(), 2U);
}

TEST(ProjectMapper, LastOfSeveralRecordsWithTheSameIdCounts) {
    const MappedProject project(ScenarioBuilder::withRoots("r1", "t1")
                                    .task("t1", "title=first priority=1000")
                                    .task("t1", "title=last priority=10")
                                    .resource("r1", "type=Staff name=first")
                                    .resource("r1", "type=Staff name=last"));
    EXPECT_EQ(project->tasks.at(1)->title, "last");
    EXPECT_EQ(project->tasks.at(1)->priority, 1000U);
    EXPECT_EQ(project->resources.at(1)->name, "last");
}

TEST(ProjectMapper, NameOfTheRootGroupIsPartOfThePaths) {
    EXPECT_THAT(groupsOf(ScenarioBuilder()
                             .task("t-1", "type=group")
                             .resource("r-1", "type=Group name=All child=r1,r3")
                             .resource("r1", "type=Group name= child=r2")
                             .resource("r2", "type=Staff")
                             .resource("r3", "type=Staff")),
                ElementsAre("All/", "All"));
}

TEST(ProjectMapper, UnnamedGroupsAreNumberedAndReplaceThePath) {
    EXPECT_THAT(groupsOf(ScenarioBuilder()
                             .task("t-1", "type=group")
                             .resource("r-1", "type=Group name=All child=r1,r5,r7")
                             .resource("r1", "type=Group child=r2,r3")
                             .resource("r2", "type=Staff")
                             .resource("r3", "type=Group name=In child=r4")
                             .resource("r4", "type=Staff")
                             .resource("r5", "type=Group child=r6")
                             .resource("r6", "type=Staff")
                             .resource("r7", "type=Staff")),
                ElementsAre("Anonymous_Group_1", "Anonymous_Group_1/In", "Anonymous_Group_2", "All"));
}

TEST(ProjectMapper, DanglingReferencesAreSkipped) {
    const MappedProject project(ScenarioBuilder::withRoots("r8,r1", "t8,t1,x")
                                    .resource("r1", "type=Staff", "<child-resource/>")
                                    .task("t1", "", "<child-task/>")
                                    .task("t-9", "type=group", "<child-task/>"));
    EXPECT_EQ(project->tasks.size(), 2U);
    EXPECT_EQ(project->resources.size(), 2U);
}

TEST(ProjectMapper, MissingTopsFail) {
    expectMappingFails(ScenarioBuilder().topResource("-"),
                       "Invalid format of ZELB top Resource ID (must begin with 'r'): (null)");
    expectMappingFails(ScenarioBuilder().topTask("-"),
                       "Invalid format of ZELB top Task ID (must begin with 't'): (null)");
    expectMappingFails(ScenarioBuilder().task("t-1"), "Resource <0x0> has no 'id' attribute.");
    expectMappingFails(ScenarioBuilder().resource("r-1", "type=Group"), "Task <0x0> has no 'id' attribute.");
}

TEST(ProjectMapper, GroupReachedTwiceFailsAtOnce) {
    const auto inTwoGroups = [](std::string_view items) {
        return ScenarioBuilder::withRoots("r1,r2")
            .resource("r1", "type=Group child=r3")
            .resource("r2", "type=Group child=r3")
            .resource("r3", items);
    };
    expectMappingFails(inTwoGroups("type=Group"), "Resource tree is not a tree: 'r3' is reached twice.");
    expectMappingFails(ScenarioBuilder::withRoots("r1").resource("r1", "type=Group child=r-1"),
                       "Resource tree is not a tree: 'r-1' is reached twice.");
    expectMappingFails(ScenarioBuilder::withRoots("r1").resource("r1", "type=Group child=r1"),
                       "Resource tree is not a tree: 'r1' is reached twice.");
    // Any other is mapped again, and fails only when its UID is registered a second time.
    expectMappingFails(inTwoGroups("type=Staff"), "Duplicated Resource UID='3' found (zelb Resource id='r3').");
    for (const char* items : {"", "type=Robot"})
        EXPECT_EQ(MappedProject(inTwoGroups(items))->resources.size(), 1U) << items;
}

TEST(ProjectMapper, InvalidTaskFailsEvenOutsideTheTree) {
    expectMappingFails(ScenarioBuilder::withRoots().task("t9", "duration=-"), "Task element 'duration' not found.");
}

TEST(ProjectMapper, TreesOfAHundredThousandLevelsAreMapped) {
    constexpr int kLevels = 100'000;
    ScenarioBuilder scenario = ScenarioBuilder::withRoots("r1", "t1");
    for (int i = 1; i <= kLevels; ++i) {
        const std::string next = std::to_string(i + 1);
        scenario.task("t" + std::to_string(i), "type=group child=t" + next);
        scenario.resource("r" + std::to_string(i), "type=Group name=g child=r" + next);
    }
    scenario.resource("r" + std::to_string(kLevels + 1), "type=Staff");
    const MappedProject project(scenario);
    EXPECT_EQ(project->tasks.size(), kLevels + 1U);
    EXPECT_EQ(project->tasks.back()->outlineLevel, std::uint64_t{kLevels});
    EXPECT_EQ(project->tasks.back()->parent, project->tasks[kLevels - 1].get());
    EXPECT_EQ(project->resources.at(1)->group.value().size(), 2U * kLevels - 1);
}

} // namespace brackwater::test
