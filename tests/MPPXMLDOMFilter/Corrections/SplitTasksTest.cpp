#include "MPPXMLDOMFilter/Corrections/SplitTasks.h"

#include "EightHourDays.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "support/ScopedTimeZone.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

// "work in elapsed hours: work@units to elapsed, ...".
std::string textOf(const MPPWorkSpread& spread) {
    std::string text = fmt::format("{:g} in {:g}", spread.work, spread.elapsed / 3600);
    for (const MPPWorkPhase& phase : spread.phases)
        text += fmt::format(", {:g}@{:g} to {:g}", phase.work, phase.units, phase.elapsed / 3600);
    return text;
}

class SplitTasks : public testing::Test {
protected:
    SplitTasks() {
        project.standardCalendar = calendarOfEightHours();
        project.tasks = {task};
        task->startDate = march(1, 8);
        task->endDate = march(5, 12);
        task->duration = 36 * 3600;
        task->source = std::make_unique<MPPTaskSource>();
        project.assignments = {assignment};
        assignment->task.setRecord(task.get());
        assignment->startDate = assignment->stopDate = assignment->resumeDate = task->startDate;
        assignment->finishDate = task->endDate;
    }

    // Two days, a gap of one day, and a day and a half.
    void split(double firstEffort, double secondEffort) {
        task->source->segments = {{march(1, 8), march(2, 16), 16 * 3600, firstEffort},
                                  {march(4, 8), march(5, 12), 12 * 3600, secondEffort}};
    }
    void work(double actual, double remaining) {
        assignment->work = actual + remaining;
        assignment->actualWork = actual;
        assignment->remainingWork = remaining;
    }
    const MPPWorkOverTime& spread() {
        markSplitTasks(project);
        spreadWork(project);
        return *assignment->workOverTime;
    }

    ScopedTimeZone zone{"UTC"};
    MPPProject project;
    std::shared_ptr<MPPTask> task = std::make_shared<MPPTask>();
    std::shared_ptr<MPPAssignment> assignment = std::make_shared<MPPAssignment>();
};

TEST_F(SplitTasks, ActualAndRemainingWorkAreSpreadOverThePieces) {
    struct Case {
        std::string what;
        double firstEffort, secondEffort;
        double actual, remaining;
        Date stop, resume;
        std::string actualText, plannedText;
    };
    const Date start = march(1, 8);
    const Date end = march(5, 12);
    const Case cases[] = {
        {"not begun", 16, 12, 0, 28, start, start, "0 in 0", "28 in 36, 16@10000 to 16, 16@0 to 24, 28@10000 to 36"},
        {"efforts of their own", 24, 6, 0, 30, start, start, "0 in 0",
         "30 in 36, 24@15000 to 16, 24@0 to 24, 30@5000 to 36"},
        {"no efforts", 0, 0, 0, 14, start, start, "0 in 0", "14 in 36, 8@5000 to 16, 8@0 to 24, 14@5000 to 36"},
        {"less than an hour", 16, 12, 0, 0.7, start, start, "0 in 0",
         "0.7 in 36, 0.4@250 to 16, 0.4@0 to 24, 0.7@250 to 36"},
        {"within the first piece", 16, 12, 8, 20, march(1, 16), march(2, 8), "8 in 8, 8@10000 to 8",
         "20 in 28, 8@10000 to 8, 8@0 to 16, 20@10000 to 28"},
        {"at the pause", 16, 12, 16, 12, march(2, 16), march(4, 8), "16 in 16, 16@10000 to 16", "12 in 12"},
        {"within the second piece", 16, 12, 24, 4, march(4, 16), march(5, 8),
         "24 in 32, 16@10000 to 16, 16@0 to 24, 24@10000 to 32", "4 in 4"},
        {"done", 16, 12, 28, 0, end, end, "28 in 36, 16@10000 to 16, 16@0 to 24, 28@10000 to 36", "0 in 0"},
    };
    for (const Case& row : cases) {
        split(row.firstEffort, row.secondEffort);
        work(row.actual, row.remaining);
        assignment->stopDate = row.stop;
        assignment->resumeDate = row.resume;
        const MPPWorkOverTime& found = spread();
        EXPECT_EQ(textOf(found.actual), row.actualText) << row.what;
        EXPECT_EQ(textOf(found.planned), row.plannedText) << row.what;
        EXPECT_TRUE(found.isSplit);
    }
    EXPECT_TRUE(task->isSplit);
    EXPECT_EQ(task->duration, 28 * 3600);
}

TEST_F(SplitTasks, WorkWithoutGapsIsWrittenAsItsSum) {
    work(12, 24);
    assignment->stopDate = assignment->resumeDate = march(2, 12);
    const MPPWorkOverTime& found = spread();
    EXPECT_EQ(textOf(found.actual), "12 in 12, 12@10000 to 12");
    EXPECT_EQ(textOf(found.planned), "24 in 24");
    EXPECT_EQ(found.planned.units, 10000);
    EXPECT_FALSE(found.isSplit || task->isSplit);
    EXPECT_EQ(task->duration, 36 * 3600);
}

TEST_F(SplitTasks, PiecesOutOfOrderAreLeftOut) {
    split(16, 12);
    auto& segments = task->source->segments;
    segments.push_back({march(3, 8), march(3, 16), 8 * 3600, 8});
    segments.push_back({std::nullopt, march(7, 16), 8 * 3600, 8});
    markSplitTasks(project);
    EXPECT_EQ(segments.size(), 2U);
    segments.resize(1);
    task->isSplit = false;
    markSplitTasks(project);
    EXPECT_TRUE(segments.empty());
    EXPECT_FALSE(task->isSplit);
}

} // namespace
} // namespace brackwater::test
