#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"

#include "support/ExpectException.h"
#include "support/ScenarioBuilder.h"

#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

using Info = MSPEScheduledTaskInfo;

// The info of one task, with its document.
struct ReadTask {
    explicit ReadTask(std::string_view items, std::string_view xml = "")
        : document(documentOf(ScenarioBuilder().topTask("-").topResource("-").task("t12", items, xml).text())),
          info(*document->rootElement().firstChildElement()) {}

    const Info* operator->() const { return &info; }

    std::shared_ptr<XMLDocument> document;
    Info info;
};

} // namespace

TEST(ScheduledTaskInfo, AbsentAndRepeatedOptionalItemsLeaveTheDefaults) {
    const ReadTask absent("");
    const ReadTask repeated("type=group type=group schedule-type=asap schedule-type=asap priority=3 priority=3 "
                            "effort=1 effort=1 effort-done=1 effort-done=1 completion-percentage=1 "
                            "completion-percentage=1 leveled-start=2012-06-02T10:00:00Z "
                            "leveled-start=2012-06-02T10:00:00Z recalculate=effort recalculate=effort "
                            "start-constraint-date=2012-06-02T10:00:00Z start-constraint-date=2012-06-02T10:00:00Z");
    for (const ReadTask* task : {&absent, &repeated}) {
        const Info& info = task->info;
        EXPECT_EQ(info.taskType(), Info::TaskType::Task);
        EXPECT_EQ(info.scheduleType(), Info::ScheduleType::Unset);
        EXPECT_EQ(info.priority(), 0);
        EXPECT_EQ(info.effort(), 0.0);
        EXPECT_EQ(info.effortDone(), 0.0);
        EXPECT_EQ(info.completionPercentage(), 0.0);
        EXPECT_EQ(info.leveledStart(), std::nullopt);
        EXPECT_EQ(info.recalculate(), Info::Recalculate::Duration);
        EXPECT_EQ(info.noEarlierThan().date, std::nullopt);
        EXPECT_EQ(info.noLaterThan().date, std::nullopt);
    }
}

TEST(ScheduledTaskInfo, WordsAreComparedExactly) {
    const ReadTask task("type=Milestone schedule-type=ASAP recalculate=Effort");
    EXPECT_EQ(task->taskType(), Info::TaskType::Task);
    EXPECT_EQ(task->scheduleType(), Info::ScheduleType::Unset);
    EXPECT_EQ(task->recalculate(), Info::Recalculate::Duration);
    EXPECT_EQ(ReadTask("type=hammock")->taskType(), Info::TaskType::Hammock);
}

TEST(ScheduledTaskInfo, MissingAndRepeatedRequiredItemsFail) {
    expectAssertion("Task element 'start-date' not found.", [] { ReadTask("start-date=-"); });
    expectAssertion("Task element 'end-date' not found.", [] { ReadTask("end-date=-"); });
    expectAssertion("Task element 'duration' not found.", [] { ReadTask("duration=-"); });
    expectAssertion("Task element 'start-date' not found.",
                    [] { ReadTask("", "<start-date>2012-06-01T08:00:00Z</start-date>"); });
    expectAssertion("Task element 'duration' not found.", [] { ReadTask("duration=1 duration=1"); });
    expectAssertion("Task attribute 'id' not found.", [] {
        const auto document = documentOf("<s><task><start-date>2012-06-01T08:00:00Z</start-date><end-date>"
                                         "2012-06-01T08:00:00Z</end-date><duration>0</duration></task></s>");
        Info(*document->rootElement().firstChildElement());
    });
}

TEST(ScheduledTaskInfo, EffortIsTruncatedAndNonNumericTextFails) {
    EXPECT_EQ(ReadTask("effort=12.9")->effort(), 12.0);
    EXPECT_THROW(ReadTask("effort=much"), Exception);
    EXPECT_THROW(ReadTask("priority="), Exception);
    EXPECT_THROW(ReadTask("duration=P1D"), Exception);
}

TEST(ScheduledTaskInfo, ParsesPrerequisites) {
    const ReadTask task("",
                        "<prerequisite-task idref='t1' kind='SF' external='other.zelb#t9'>"
                        "<is-resource-dependency>yes</is-resource-dependency>"
                        "<lead-time is-percentage='true'>0.5</lead-time></prerequisite-task>"
                        "<prerequisite-task kind='XX'><is-resource-dependency>maybe</is-resource-dependency>"
                        "<lead-time is-percentage='TRUE'>-86400s</lead-time></prerequisite-task>"
                        "<prerequisite-task idref='t3' kind='FF'><is-resource-dependency>no</is-resource-dependency>"
                        "<lead-time>soon</lead-time></prerequisite-task>"
                        "<prerequisite-task idref='t3' kind='SS'><is-resource-dependency>yes</is-resource-dependency>"
                        "<is-resource-dependency>yes</is-resource-dependency>"
                        "<lead-time>1</lead-time><lead-time>2</lead-time></prerequisite-task>");
    const auto& links = task->prerequisites();
    ASSERT_EQ(links.size(), 4U);
    EXPECT_EQ(links[0].predecessorId, "t1");
    EXPECT_EQ(links[0].externalReference, "other.zelb#t9");
    EXPECT_EQ(links[0].kind, Info::LinkKind::StartFinish);
    EXPECT_TRUE(links[0].isResourceDependency);
    EXPECT_EQ(links[0].lead, 0.5);
    EXPECT_TRUE(links[0].leadIsPercent);

    EXPECT_EQ(links[1].predecessorId, std::nullopt);
    EXPECT_EQ(links[1].kind, Info::LinkKind::FinishStart);
    EXPECT_FALSE(links[1].isResourceDependency);
    EXPECT_EQ(links[1].lead, -86400.0);
    EXPECT_FALSE(links[1].leadIsPercent);

    EXPECT_EQ(links[2].kind, Info::LinkKind::FinishFinish);
    EXPECT_FALSE(links[2].isResourceDependency);
    EXPECT_EQ(links[2].lead, 0.0) << "a text that is no number";
    EXPECT_EQ(links[3].kind, Info::LinkKind::StartStart);
    EXPECT_FALSE(links[3].isResourceDependency) << "a repeated item";
    EXPECT_EQ(links[3].lead, 0.0) << "a repeated item";
}

TEST(ScheduledTaskInfo, ProgressComesFromEffortOtherwiseFromThePercentage) {
    EXPECT_EQ(ReadTask("effort=3600 effort-done=900 completion-percentage=0.9")->percentageComplete(), 0.25);
    EXPECT_EQ(ReadTask("effort=0 completion-percentage=0.5")->percentageComplete(), 0.5);
    EXPECT_EQ(ReadTask("effort=3600 effort-done=0 completion-percentage=0.25")->percentageComplete(), 0.25);
    EXPECT_EQ(ReadTask("effort=3600 completion-percentage=-1")->percentageComplete(), 0.0);
    EXPECT_EQ(ReadTask("effort=3600 effort-done=3600")->percentComplete(), 100);
}

TEST(ScheduledTaskInfo, ProgressOutOfRangeFailsWhenRead) {
    const ReadTask task("effort=3600 effort-done=7200");
    expectAssertion("Incorrect value of percentComplete (2.000000). Must be from 0.0 to 1.0.",
                    [&] { static_cast<void>(task->percentageComplete()); });
    const ReadTask percentage("completion-percentage=1.5");
    expectAssertion("Incorrect value of percentComplete (1.500000). Must be from 0.0 to 1.0.",
                    [&] { static_cast<void>(percentage->percentComplete()); });
}

} // namespace brackwater::test
