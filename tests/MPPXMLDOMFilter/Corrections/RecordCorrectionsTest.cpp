#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Corrections/Baselines.h"
#include "MPPXMLDOMFilter/Corrections/DateBounds.h"
#include "MPPXMLDOMFilter/Corrections/GuidOrder.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

TEST(Baselines, OnlySummariesOfTheBaselineGetTotals) {
    MPPProject project;
    const auto add = [&project](MPPTask* parent, bool isInBaseline) {
        const auto& task = project.tasks.emplace_back(std::make_shared<MPPTask>());
        task->ID = project.tasks.size() - 1;
        task->parent = parent;
        if (isInBaseline) {
            task->baseline0 = std::make_shared<MPPTaskBaseline>();
            task->baseline0->work = 8;
            task->baseline0->cost = 300;
        }
        return task.get();
    };
    MPPTask* const top = add(nullptr, false);
    MPPTask* const group = add(top, true);
    add(group, true);
    add(add(group, false), true);
    correctBaselines(project, AssignmentIndex(project));
    EXPECT_EQ(top->baseline0, nullptr);
    EXPECT_EQ(group->baseline0->work, 16);
    EXPECT_EQ(group->baseline0->cost, 600);
}

TEST(Baselines, MaterialAloneHasNoWorkAndTheTaskKeepsItsEffort) {
    MPPProject project;
    const auto sand = project.resources.emplace_back(std::make_shared<MPPResource>());
    sand->source = std::make_unique<MPPResourceSource>();
    sand->source->id = "r1";
    sand->source->kind = MPPResourceKind::Material;
    const auto task = project.tasks.emplace_back(std::make_shared<MPPTask>());
    task->ID = 1;
    task->baseline0 = std::make_shared<MPPTaskBaseline>();
    task->baseline0->start = Date{0};
    task->source = std::make_unique<MPPTaskSource>();
    auto& source = task->source->baseline.emplace();
    source.effort = 7200;
    source.staticCost = 5;
    source.assignments = {{"r1", 3}};
    const auto assignment = project.assignments.emplace_back(std::make_shared<MPPAssignment>());
    assignment->task.setRecord(task.get());
    assignment->resource.setRecord(sand.get());
    assignment->baseline0 = std::make_shared<MPPAssignmentBaseline>();
    correctBaselines(project, AssignmentIndex(project));
    EXPECT_EQ(assignment->baseline0->work, 0);
    EXPECT_EQ(assignment->baseline0->start, std::nullopt);
    EXPECT_EQ(task->baseline0->work, 2);
    EXPECT_EQ(task->baseline0->cost, 500);
}

TEST(GuidOrder, FirstThreeGroupsOfEveryRecordAreSwappedOnce) {
    MPPProject project;
    const auto calendar = std::make_shared<MPPCalendar>();
    for (int i = 0; i < 2; ++i) { // who share it
        project.resources.push_back(std::make_shared<MPPResource>());
        project.resources.back()->calendar.setRecord(calendar);
    }
    project.calendar.setRecord(calendar);
    const Guid before = calendar->GUID();
    const Guid defaultBefore = project.defaultResource()->GUID();
    correctGuidOrder(project);

    Guid::Bytes expected = before.bytes();
    std::swap(expected[0], expected[3]);
    std::swap(expected[1], expected[2]);
    std::swap(expected[4], expected[5]);
    std::swap(expected[6], expected[7]);
    EXPECT_EQ(calendar->GUID().bytes(), expected);
    EXPECT_EQ(project.resources[0]->GUID().bytes()[7] >> 4, 4); // the version
    EXPECT_EQ(project.GUID().bytes()[7] >> 4, 4);
    EXPECT_EQ(project.defaultResource()->GUID(), defaultBefore);
}

TEST(DateBounds, DatesThatWouldWrapAroundAreRemoved) {
    const ScopedTimeZone zone("Europe/Berlin");
    constexpr double kFirst = 441676800 - 3600.0; // 1983-12-31 00:00 in that zone, in winter
    constexpr double kEnd = 441676800 + 65535 * 86400.0 - 7200.0;
    struct Row {
        double second;
        bool stays;
    };
    for (const Row& row : {Row{kFirst, true},
                           {kFirst - 1, false},
                           {kEnd - 1, true},
                           {kEnd, false},
                           {-1e300, false},
                           {std::numeric_limits<double>::quiet_NaN(), false}}) {
        MPPProject project;
        auto task = std::make_shared<MPPTask>();
        task->startDate = Date{row.second};
        task->progressPoints = {{true, 0, Date{row.second}}, {false, 50, std::nullopt}};
        task->baselines.push_back(std::make_shared<MPPTaskBaseline>());
        task->baselines[0]->finish = Date{row.second};
        project.tasks.push_back(task);
        project.baseline0SaveDate = Date{row.second};
        dropDatesOutsideFormat(project);
        EXPECT_EQ(task->startDate.has_value(), row.stays) << row.second;
        EXPECT_EQ(task->progressPoints.empty(), !row.stays) << row.second;
        EXPECT_EQ(task->baselines[0]->finish.has_value(), row.stays) << row.second;
        EXPECT_EQ(project.baseline0SaveDate.has_value(), row.stays) << row.second;
    }
}

TEST(DateBounds, SpansOfDaysAreClippedToTheBounds) {
    const ScopedTimeZone zone("UTC");
    MPPProject project;
    const auto add = [&project](double start, double end) {
        auto exception = std::make_shared<MPPCalendarException>();
        exception->startDate = Date{start};
        exception->endDate = Date{end};
        project.standardCalendar->exceptions.push_back(exception);
    };
    add(0, 441676799);
    add(0, 450000000);
    add(450000000, 1e12);
    dropDatesOutsideFormat(project);
    const auto& exceptions = project.standardCalendar->exceptions;
    ASSERT_EQ(exceptions.size(), 2U);
    EXPECT_EQ(exceptions[0]->startDate->secondsSince1970, 441676800);
    EXPECT_EQ(exceptions[1]->endDate->secondsSince1970, 441676800 + 65535 * 86400.0 - 1);
}

} // namespace
} // namespace brackwater::test
