#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaselineMappers.h"

#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaseline.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/MappedProject.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

// The main document's task t1 in the baseline; null if it is not there.
std::shared_ptr<MPPTaskBaseline> baselineOfTask(const ScenarioBuilder& baseline) {
    const MappedProject project(ScenarioBuilder::withRoots("", "t1").task("t1"), "", {baseline.document()});
    const auto& baselines = project->tasks.at(1)->baselines;
    return baselines.empty() ? nullptr : baselines.at(0);
}

} // namespace

TEST(TaskBaseline, HasDatesDurationAndWork) {
    const ScopedTimeZone zone("Europe/Berlin");
    const auto baseline = baselineOfTask(
        ScenarioBuilder().task("t1", "start-date=2012-05-01T08:00:00Z end-date=2012-05-02T08:00:00Z duration=3600.9 "
                                     "effort=7200 static-cost=5"));
    ASSERT_NE(baseline, nullptr);
    EXPECT_EQ(baseline->start, MSPIUtilities::zelbToMppDateTime("2012-05-01T08:00:00Z"));
    EXPECT_EQ(baseline->finish, MSPIUtilities::zelbToMppDateTime("2012-05-02T08:00:00Z"));
    EXPECT_EQ(baseline->duration, 3600.0) << "read as an integer";
    EXPECT_EQ(baseline->work, 7200.0) << "in seconds";
}

TEST(TaskBaseline, BothDatesDependOnTheStart) {
    const auto noStart = baselineOfTask(ScenarioBuilder().task("t1", "start-date=-"));
    ASSERT_NE(noStart, nullptr);
    EXPECT_EQ(noStart->start, std::nullopt);
    EXPECT_EQ(noStart->finish, std::nullopt);
    const auto noEnd = baselineOfTask(ScenarioBuilder().task("t1", "end-date=- duration=-"));
    ASSERT_NE(noEnd, nullptr);
    EXPECT_NE(noEnd->start, std::nullopt);
    EXPECT_EQ(noEnd->finish, std::nullopt);
    EXPECT_EQ(noEnd->duration, 0.0);
}

TEST(Baselines, AreNumberedInDocumentOrder) {
    const ScenarioBuilder scenario = ScenarioBuilder::withRoots("", "t1").task("t1");
    const auto first = ScenarioBuilder().task("t1", "duration=60").document();
    const auto second = ScenarioBuilder().task("t1", "duration=120").document();
    const MappedProject project(scenario, "", {first, second});
    ASSERT_EQ(project->tasks.at(1)->baselines.size(), 2U);
    EXPECT_EQ(project->tasks.at(1)->baselines[1]->duration, 120.0);
    EXPECT_TRUE(project.logged("  Mapping 2 baselines for Task ..."));
}

TEST(Baselines, NumberOutOfRangeFails) {
    MSPEMapper mapper(nullptr, tableOfContents(), {ScenarioBuilder().document()}, std::nullopt);
    expectAssertion("Incorrect argument baselineNumber=1. Must be from 0 to 0.",
                    [&] { MSPETaskBaselineMapper(1, &mapper); });
    MSPEMapper none(nullptr, tableOfContents(), {}, std::nullopt);
    expectAssertion("Incorrect argument baselineNumber=0. Must be from 0 to -1.",
                    [&] { MSPETaskBaselineMapper(0, &none); });
}

TEST(Baselines, AssignmentIsFoundUnderItsOwnTaskAtAnyDepth) {
    const MSPEBaseline baseline(documentOf("<s><task id='t1'><assignment idref='r1'/></task><x>"
                                           "<task id='t2'><assignment idref='r2'/></task></x></s>"));
    EXPECT_TRUE(baseline.getAssignmentByTaskId("t1", "r1").has_value());
    EXPECT_TRUE(baseline.getAssignmentByTaskId("t2", "r2").has_value());
    EXPECT_FALSE(baseline.getAssignmentByTaskId("t1", "r2").has_value());
    EXPECT_FALSE(baseline.getTaskById("t2").has_value()) << "tasks are looked for below the root only";
    EXPECT_FALSE(baseline.getTaskById("t1'] | //x[@a='").has_value());
}

} // namespace brackwater::test
