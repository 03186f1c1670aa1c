#include "MPPXMLDOMFilter/Corrections/CriticalPath.h"

#include "EightHourDays.h"

#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "support/ScopedTimeZone.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

constexpr int kFF = 0, kFS = 1, kSF = 2, kSS = 3;

class CriticalPath : public testing::Test {
protected:
    CriticalPath() { project.standardCalendar = calendarOfEightHours(); }

    MPPTask& addTask(Date start, Date end, MPPTask* parent = nullptr) {
        MPPTask& task = *project.tasks.emplace_back(std::make_shared<MPPTask>());
        task.ID = project.tasks.size();
        task.parent = parent ? parent : &project;
        task.startDate = start;
        task.endDate = end;
        task.duration = 8 * 3600;
        return task;
    }
    /// From 8 to 16 o'clock.
    MPPTask& addDays(int first, int last, MPPTask* parent = nullptr) {
        return addTask(march(first, 8), march(last, 16), parent);
    }

    MPPConstraint& link(MPPTask& from, MPPTask& to, int type = kFS, double hours = 0) {
        MPPConstraint& link = *project.constraints.emplace_back(std::make_shared<MPPConstraint>());
        link.task1.setRecord(&from);
        link.task2.setRecord(&to);
        link.constraintType = type;
        link.lag = hours * 600;
        return link;
    }

    /// "late start late finish, hours of slack (start, finish, free)", behind it "critical".
    std::string slackOf(const MPPTask& task) {
        const auto shown = [](const std::optional<Date>& date) {
            const CivilTime time = GregorianCalendar().fieldsOfDate(date.value());
            return fmt::format("{}-{:02}", time.day, time.hour);
        };
        return fmt::format("{} {}, {:g} {:g} {:g}{}", shown(task.getLateStart()), shown(task.getLateFinish()),
                           task.getStartSlack() / 3600, task.getFinishSlack() / 3600, task.getFreeSlack() / 3600,
                           task.isCritical() ? ", critical" : "");
    }

    void find() { findCriticalPath(project, AssignmentIndex(project)); }

    const ScopedTimeZone zone{"UTC"};
    MPPProject project;
};

TEST_F(CriticalPath, WhatHoldsNothingMayMoveToTheEndOfTheProject) {
    MPPTask& first = addDays(1, 2);
    MPPTask& second = addDays(3, 4);
    MPPTask& alone = addTask(march(1, 8), march(1, 12));
    MPPTask& milestone = addTask(march(2, 16), march(2, 16));
    link(first, second);
    find();
    EXPECT_EQ(slackOf(first), "1-08 2-16, 0 0 0, critical");
    EXPECT_EQ(slackOf(second), "3-08 4-16, 0 0 0, critical");
    EXPECT_EQ(slackOf(alone), "4-12 4-16, 28 28 28");
    EXPECT_EQ(slackOf(milestone), "4-16 4-16, 16 16 16");
}

TEST_F(CriticalPath, SuccessorsHoldATaskByEachKindOfLinkAndItsLag) {
    struct Row {
        int type;
        double hours;
        const char* slack; ///< of a task on the 2nd, whose successor on the 4th can move to the 5th
    };
    for (const Row& row :
         {Row{kFS, 0, "4-08 4-16, 16 16 8"}, Row{kFS, 8, "3-08 3-16, 8 8 0"}, Row{kFS, -8, "5-08 5-16, 24 24 16"},
          Row{kFS, 99, "2-08 2-16, 0 0 0, critical"}, Row{kFF, 0, "5-08 5-16, 24 24 16"},
          Row{kSS, 4, "4-12 5-12, 20 20 12"}, Row{kSF, 24, "3-08 3-16, 8 8 0"}}) {
        project.tasks.clear();
        project.constraints.clear();
        MPPTask& task = addDays(2, 2);
        MPPTask& next = addDays(4, 4);
        addDays(1, 5);
        link(task, next, row.type, row.hours);
        find();
        EXPECT_EQ(slackOf(task), row.slack) << row.type << " " << row.hours;
        EXPECT_EQ(slackOf(next), "5-08 5-16, 8 8 8");
    }
    MPPConstraint& percentage = *project.constraints.front();
    percentage.constraintType = kFS;
    percentage.isPercentage = true;
    percentage.lag = 50;
    find();
    EXPECT_EQ(slackOf(*project.tasks.front()), "3-12 4-12, 12 12 4");
}

TEST_F(CriticalPath, GroupsHandLimitsDownAndTakeTheLateDatesOfTheirTasks) {
    MPPTask& before = addDays(1, 1);
    MPPTask& group = addDays(2, 3);
    MPPTask& early = addDays(2, 2, &group);
    MPPTask& late = addDays(3, 3, &group);
    MPPTask& after = addDays(5, 5);
    MPPTask& other = addDays(1, 6);
    addDays(1, 1, &other);
    addDays(1, 6, &other);
    link(before, group);
    link(early, late);
    link(group, after);
    find();
    EXPECT_EQ(slackOf(after), "6-08 6-16, 8 8 8");
    EXPECT_EQ(slackOf(late), "5-08 5-16, 16 16 16");
    EXPECT_EQ(slackOf(early), "4-08 4-16, 16 16 0");
    EXPECT_EQ(slackOf(group), "4-08 5-16, 16 16 16");
    EXPECT_EQ(slackOf(before), "3-08 3-16, 16 16 0");
    EXPECT_EQ(slackOf(other), "1-08 6-16, 0 0 0, critical");
}

TEST_F(CriticalPath, ProgressDeadlinesAndConstraintsLimitTheSlack) {
    MPPTask& done = addDays(1, 1);
    done.actualStart = done.startDate;
    done.actualFinish = done.endDate;
    MPPTask& started = addDays(1, 1);
    started.actualStart = started.startDate;
    link(started, addDays(2, 2), kSS);
    MPPTask& withDeadline = addDays(1, 1);
    withDeadline.deadline = march(2, 12);
    MPPTask& overdue = addDays(2, 2);
    overdue.deadline = march(1, 12);
    MPPTask& mustStart = addDays(1, 1);
    mustStart.constraintType = 2;
    mustStart.constraintDate = march(1, 8);
    MPPTask& noLater = addDays(1, 1);
    noLater.constraintType = 7;
    noLater.constraintDate = march(3, 16);
    addDays(1, 5);
    find();
    EXPECT_EQ(slackOf(done), "1-08 1-16, 0 0 0");
    EXPECT_EQ(slackOf(started), "1-08 5-16, 0 32 32") << "its start can move no more";
    EXPECT_EQ(slackOf(withDeadline), "1-12 2-12, 4 4 4");
    EXPECT_EQ(slackOf(overdue), "2-08 2-16, 0 0 0, critical");
    EXPECT_EQ(slackOf(mustStart), "1-08 1-16, 0 0 0, critical");
    EXPECT_EQ(slackOf(noLater), "3-08 3-16, 16 16 16");
}

// March 3, 2027, is a Wednesday.
TEST_F(CriticalPath, SlackIsWorkingTimeOfTheFirstWorker) {
    const auto calendar = calendarOfEightHours();
    calendar->defaultWorkWeek->wednesdayWorkRanges = std::make_shared<MPPRangeList>();
    MPPResource& worker = *project.resources.emplace_back(std::make_shared<MPPResource>());
    worker.calendar.setRecord(calendar);
    MPPTask& task = addDays(1, 1);
    MPPAssignment& assignment = *project.assignments.emplace_back(std::make_shared<MPPAssignment>());
    assignment.task.setRecord(&task);
    assignment.resource.setRecord(&worker);
    addDays(1, 4);
    find();
    EXPECT_EQ(slackOf(task), "4-08 4-16, 16 16 16");
}

TEST_F(CriticalPath, ACircleOfLinksAndWhatComesBeforeItStayOnTheSchedule) {
    MPPTask& before = addDays(1, 1);
    MPPTask& one = addDays(2, 2);
    MPPTask& other = addDays(3, 3);
    MPPTask& after = addDays(4, 4);
    addDays(1, 5);
    addTask(march(1, 8), march(1, 16)).startDate = std::nullopt;
    link(before, one);
    link(one, other);
    link(other, one);
    link(other, after);
    find();
    for (const MPPTask* task : {&before, &one, &other})
        EXPECT_EQ(task->slack, nullptr);
    EXPECT_EQ(slackOf(after), "5-08 5-16, 8 8 8");
    EXPECT_EQ(project.tasks.back()->slack, nullptr);
}

} // namespace
} // namespace brackwater::test
