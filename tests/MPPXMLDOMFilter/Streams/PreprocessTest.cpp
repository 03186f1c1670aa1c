#include "StreamsTest.h"

namespace brackwater::test {
namespace {

class Preprocessing : public StreamsTest {};

TEST_F(Preprocessing, TheProjectStandsInForASingleTopTask) {
    MPPTask& root = addTask("root");
    MPPTask& child = addTask("child", &root);
    MPPTask& grandchild = addTask("grandchild", &child);
    root.startDate = dateAt(1);
    root.endDate = dateAt(2);
    root.duration = 77;
    root.cost = 5;
    child.cost = 1;
    child.fixedCost = 2;
    MPPAssignment& ofRoot = addAssignment(&root, nullptr);
    addAssignment(nullptr, nullptr);
    MPPConstraint& link = addLink(&root, nullptr);
    preprocess();

    ASSERT_EQ(project.tasks.size(), 2U);
    EXPECT_EQ(project.startDate, dateAt(1));
    EXPECT_EQ(project.endDate, dateAt(2));
    EXPECT_EQ(project.duration, 77);
    EXPECT_EQ(project.cost, 0);
    EXPECT_FALSE(project.title);
    EXPECT_EQ(child.ID, 1U);
    EXPECT_EQ(child.parent, &project);
    EXPECT_EQ(child.parentTaskID(), 0U);
    EXPECT_EQ(child.cost, 3);
    EXPECT_EQ(child.fixedCost, 2);
    EXPECT_EQ(grandchild.parent, &child);
    EXPECT_EQ(ofRoot.task.record(), &project);
    EXPECT_EQ(project.assignments.size(), 1U) << "with a root, work on no task is dropped";
    EXPECT_EQ(link.task1.record(), &project);
    EXPECT_EQ(link.task2.record(), nullptr);
}

TEST_F(Preprocessing, WithTwoTopTasksBothStayAndMissingTasksBecomeTheProject) {
    MPPTask& second = addTask("second");
    MPPTask& first = addTask("first");
    second.ID = 9;
    first.ID = 4;
    second.startDate = dateAt(1);
    MPPAssignment& homeless = addAssignment(nullptr, nullptr);
    MPPConstraint& link = addLink(&first, nullptr);
    project.ID = 3;
    preprocess();

    ASSERT_EQ(project.tasks.size(), 2U);
    EXPECT_EQ(project.tasks[0].get(), &first);
    EXPECT_EQ(first.ID, 1U);
    EXPECT_EQ(second.ID, 2U);
    EXPECT_EQ(first.parent, &project);
    EXPECT_EQ(project.ID, 0U);
    EXPECT_EQ(project.startDate, std::nullopt);
    EXPECT_EQ(homeless.task.record(), &project);
    EXPECT_EQ(link.task2.record(), &project);
}

TEST_F(Preprocessing, FirstBaselinesMoveOutOfTheirLists) {
    MPPTask& task = addTask("a");
    MPPTask& kept = addTask("b");
    MPPResource& resource = addResource("r");
    MPPAssignment& assignment = addAssignment(&task, &resource);
    const auto first = std::make_shared<MPPTaskBaseline>();
    task.baselines = {first, std::make_shared<MPPTaskBaseline>()};
    kept.baseline0 = std::make_shared<MPPTaskBaseline>();
    kept.baselines = {std::make_shared<MPPTaskBaseline>()};
    resource.baselines = {std::make_shared<MPPResourceBaseline>()};
    assignment.baselines = {std::make_shared<MPPAssignmentBaseline>()};
    project.baselines = {std::make_shared<MPPTaskBaseline>()};
    preprocess();

    EXPECT_EQ(task.baseline0, first);
    EXPECT_EQ(task.baselines.size(), 1U);
    EXPECT_EQ(kept.baselines.size(), 1U);
    EXPECT_TRUE(resource.baseline0 && resource.baselines.empty());
    EXPECT_TRUE(assignment.baseline0 && assignment.baselines.empty());
    EXPECT_TRUE(!project.baseline0 && project.baselines.size() == 1) << "the project's own stay where they are";
}

TEST_F(Preprocessing, OnlyTheFirstResourceInTheDefaultPlaceGoes) {
    MPPTask& task = addTask("a");
    addTask("b");
    addResource("one").ID = 5;
    MPPResource& dummy = addResource("dummy");
    dummy.ID = 0;
    addResource("another zero").ID = 0;
    MPPAssignment& assignment = addAssignment(&task, &dummy);
    preprocess();

    ASSERT_EQ(project.resources.size(), 2U);
    EXPECT_EQ(project.resources[0]->name, "one");
    EXPECT_EQ(project.resources[0]->ID, 1U);
    EXPECT_EQ(project.resources[1]->name, "another zero");
    EXPECT_EQ(project.resources[1]->ID, 2U);
    EXPECT_EQ(assignment.resource.record()->name, "dummy") << "what still points at it finds it";
}

TEST_F(Preprocessing, AssignmentsAreSortedAndNumbered) {
    MPPTask& task = addTask("a");
    addTask("b");
    MPPAssignment& late = addAssignment(&task, nullptr);
    MPPAssignment& early = addAssignment(&task, nullptr);
    late.ID = 40;
    early.ID = 7;
    preprocess();
    EXPECT_EQ(early.ID, 1U);
    EXPECT_EQ(late.ID, 2U);
    EXPECT_EQ(project.assignments[0].get(), &early);
}

TEST_F(Preprocessing, CalendarsAreNumberedInStreamOrder) {
    auto night = std::make_shared<MPPCalendar>();
    night->name = "Night";
    project.baseCalendars = {project.standardCalendar, night};
    project.standardCalendar->name = "Something";
    MPPResource& withCalendar = addResource("with");
    auto own = std::make_shared<MPPCalendar>();
    own->name = "own";
    withCalendar.calendar.setRecord(own);
    MPPResource& without = addResource("without");
    project.calendar.setRecord(night);
    preprocess();

    EXPECT_EQ(project.standardCalendar->name, "Standard");
    EXPECT_EQ(project.standardCalendar->ID, 1U);
    EXPECT_EQ(project.defaultResource()->calendar.record()->ID, 2U);
    ASSERT_EQ(project.baseCalendars.size(), 1U);
    EXPECT_EQ(night->ID, 3U);
    EXPECT_EQ(night->name, "Night");
    EXPECT_EQ(own->ID, 4U);
    EXPECT_FALSE(own->name);
    EXPECT_EQ(without.calendar.record()->ID, 5U);
    EXPECT_EQ(without.calendar.record()->baseCalendar.record(), night.get());
    EXPECT_EQ(project.calendar.record(), night.get());
}

TEST_F(Preprocessing, AProjectWithoutACalendarTakesTheStandardOne) {
    MPPResource& resource = addResource("r");
    preprocess();
    EXPECT_EQ(project.calendar.record(), project.standardCalendar.get());
    EXPECT_EQ(resource.calendar.record()->baseCalendar.record(), project.standardCalendar.get());
}

} // namespace
} // namespace brackwater::test
