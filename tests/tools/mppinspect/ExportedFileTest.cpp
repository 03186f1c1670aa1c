#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"
#include "make-template/CompoundFileOutput.h"
#include "make-template/TemplateTree.h"
#include "mppinspect/ProjectFile.h"
#include "mppinspect/TextReport.h"
#include "support/LogCapture.h"
#include "support/ScopedTimeZone.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

constexpr double kHour = 3600, kDay = 24 * kHour;
// 2026-03-02 08:00 in the zone of the tests.
constexpr Date kMonday{1772438400};

std::shared_ptr<MPPRangeList> ranges(std::initializer_list<std::pair<int, int>> hours) {
    auto list = std::make_shared<MPPRangeList>();
    for (const auto& [start, end] : hours) {
        auto range = std::make_shared<MPPCalendarTimeRange>();
        range->start.emplace().setHours(static_cast<std::uint8_t>(start));
        range->end.emplace().setHours(static_cast<std::uint8_t>(end));
        list->push_back(range);
    }
    return list;
}

/// A project with one of everything, as post-processing leaves it.
class Plan {
public:
    Plan() {
        project.title = "House";
        project.startDate = kMonday;
        project.endDate = kMonday.advancedBy(5 * kDay);
        project.standardCalendar = std::make_shared<MPPCalendar>();
        project.standardCalendar->name = "Standard";
        project.defaultResource()->calendar.setRecord(calendarOf(project.standardCalendar));
        project.summaryInfo = std::make_shared<MPPSummaryInformation>();
        project.summaryInfo->title = "House";
    }

    std::shared_ptr<MPPTask> task(const char* title, MPPTask* parent = nullptr) {
        auto task = std::make_shared<MPPTask>();
        task->title = title;
        task->ID = project.tasks.size() + 1;
        task->parent = parent;
        task->outlineLevel = parent == nullptr ? 1 : parent->outlineLevel + 1;
        task->startDate = kMonday;
        task->endDate = kMonday.advancedBy(2 * kDay);
        task->duration = 16 * kHour;
        task->estimated = false;
        project.tasks.push_back(task);
        return task;
    }

    std::shared_ptr<MPPResource> resource(const char* name) {
        auto resource = std::make_shared<MPPResource>();
        resource->name = name;
        resource->ID = project.resources.size() + 1;
        project.resources.push_back(resource);
        return resource;
    }

    void link(MPPTask* from, MPPTask* to, int type, double lag) {
        auto link = std::make_shared<MPPConstraint>();
        link->ID = project.constraints.size() + 1;
        link->task1.setRecord(from);
        link->task2.setRecord(to);
        link->constraintType = type;
        link->lag = lag;
        project.constraints.push_back(link);
    }

    std::shared_ptr<MPPAssignment> assignment(MPPTask* task, MPPResource* resource, double hours) {
        auto assignment = std::make_shared<MPPAssignment>();
        assignment->ID = project.assignments.size() + 1;
        assignment->task.setRecord(task);
        assignment->resource.setRecord(resource);
        assignment->startDate = kMonday;
        assignment->finishDate = kMonday.advancedBy(2 * kDay);
        assignment->work = assignment->remainingWork = hours;
        project.assignments.push_back(assignment);
        return assignment;
    }

    static std::shared_ptr<MPPCalendar> calendarOf(const std::shared_ptr<MPPCalendar>& base) {
        auto calendar = std::make_shared<MPPCalendar>();
        calendar->baseCalendar.setRecord(base);
        return calendar;
    }

    MPPProject project;
};

class ExportedFile : public testing::TestWithParam<layout::VersionFolder> {
protected:
    inspect::ProjectFile exported(MPPProject& project) {
        const std::string source = _folder.path("Template.mpp"), output = _folder.path("Out.mpp");
        layout::writeCompoundFile(source, layout::templateTree(GetParam()));
        const CompoundFileLibrary library;
        MPPWriteFailure failure;
        EXPECT_TRUE(MPPProjectWriter::writeProject(&project, FileURL::fileURLWithPath(output, false),
                                                   FileURL::fileURLWithPath(source, false), &failure))
            << failure.entryPath << ": " << failure.reason;
        return decode(inspect::CompoundFile::open(output));
    }

    TempFolder _folder;
    LogCapture _log;
    ScopedTimeZone _zone{"UTC"};
    Plan _plan;
};

INSTANTIATE_TEST_SUITE_P(BothFolders, ExportedFile,
                         testing::Values(layout::VersionFolder::Project2007, layout::VersionFolder::Project2010));

TEST_P(ExportedFile, ShowsTheTasksAsTheyWere) {
    const auto build = _plan.task("Build"), walls = _plan.task("Walls", build.get());
    _plan.task("Roof");
    walls->milestone = true;
    walls->notes = "Mind the gap";
    walls->work = 12;
    walls->priority = 700;
    walls->constraintType = 4;
    walls->constraintDate = kMonday;
    walls->percentageComplete = 40;
    walls->customFieldValues = {"north", "", "red"};
    for (int n = 0; n < 3; ++n) {
        auto baseline = std::make_shared<MPPTaskBaseline>();
        baseline->start = kMonday.advancedBy(n * kDay);
        baseline->finish = kMonday.advancedBy((n + 1) * kDay);
        baseline->duration = (n + 1) * 8 * kHour;
        baseline->work = n + 1;
        walls->baselines.push_back(baseline);
    }
    _plan.project.customTaskFieldNames = {"Side", "Floor", "Colour"};

    const inspect::ProjectFile file = exported(_plan.project);
    ASSERT_EQ(file.tasks.size(), 4U);
    EXPECT_EQ(file.tasks[0].title, "House");
    EXPECT_FALSE(file.tasks[0].parentId);
    EXPECT_EQ(file.tasks[1].parentId, 0U);
    const inspect::Task& shown = file.tasks[2];
    EXPECT_EQ(shown.title, "Walls");
    EXPECT_EQ(shown.parentId, 1U);
    EXPECT_EQ(shown.depth, 2);
    EXPECT_EQ(shown.parentGuid, file.tasks[1].guid);
    EXPECT_EQ(inspect::textOf(shown.start), "2026-03-02 08:00");
    EXPECT_EQ(inspect::textOf(shown.finish), "2026-03-04 08:00");
    EXPECT_EQ(inspect::textOf(shown.duration, file.units), "2d");
    EXPECT_EQ(inspect::workText(shown.work), "12h");
    EXPECT_EQ(shown.priority, 700);
    EXPECT_EQ(inspect::constraintText(shown.constraintType), "start no earlier");
    EXPECT_EQ(shown.constraintDate, shown.start);
    EXPECT_EQ(shown.percentComplete, 40);
    EXPECT_TRUE(shown.milestone);
    EXPECT_TRUE(shown.effortDriven);
    EXPECT_FALSE(file.tasks[1].milestone);
    EXPECT_EQ(shown.notes, "Mind the gap");
    EXPECT_EQ(shown.texts, (inspect::TextFields{{1, "north"}, {3, "red"}}));
    EXPECT_EQ(file.taskTextNames, (std::map<std::size_t, std::string>{{1, "Side"}, {2, "Floor"}, {3, "Colour"}}));
    ASSERT_EQ(shown.baselines.size(), 3U);
    EXPECT_EQ(inspect::textOf(shown.baselines.at(2).start), "2026-03-04 08:00");
    EXPECT_EQ(inspect::textOf(*shown.baselines.at(1).duration, file.units), "2d?");
    EXPECT_EQ(inspect::workText(*shown.baselines.at(2).work), "3h");
}

TEST_P(ExportedFile, ShowsResourcesAssignmentsAndLinksAsTheyWere) {
    const auto first = _plan.task("First"), second = _plan.task("Second");
    const auto ann = _plan.resource("Ann"), sand = _plan.resource("Sand"), fee = _plan.resource("Fee");
    ann->standartRate = 40;
    ann->maxUnits = 50;
    ann->group = "Masons";
    ann->emailAddress = "ann@example.org";
    sand->setResourceTypeMaterial();
    fee->setResourceTypeCost();
    _plan.assignment(first.get(), ann.get(), 16)->notes = "mornings";
    _plan.assignment(second.get(), nullptr, 8)->actualWork = 2;
    _plan.link(first.get(), second.get(), 1, 4800);

    const inspect::ProjectFile file = exported(_plan.project);
    ASSERT_EQ(file.resources.size(), 4U);
    const inspect::Resource& shown = file.resources[1];
    EXPECT_EQ(shown.name, "Ann");
    EXPECT_EQ(shown.kind, inspect::ResourceKind::Work);
    EXPECT_EQ(shown.standardRate, 40);
    EXPECT_EQ(shown.maximumUnits, 5000);
    EXPECT_EQ(shown.group, "Masons");
    EXPECT_EQ(shown.email, "ann@example.org");
    EXPECT_EQ(shown.placeInSheet, 2.0);
    EXPECT_TRUE(shown.calendarId);
    EXPECT_EQ(file.resources[2].kind, inspect::ResourceKind::Material);
    EXPECT_EQ(file.resources[3].kind, inspect::ResourceKind::Cost);

    ASSERT_EQ(file.assignments.size(), 2U);
    EXPECT_EQ(file.assignments[0].taskId, 1U);
    EXPECT_EQ(file.assignments[0].resourceId, 1U);
    EXPECT_EQ(inspect::workText(file.assignments[0].work), "16h");
    EXPECT_EQ(file.assignments[0].units, 10000);
    EXPECT_EQ(file.assignments[0].notes, "mornings");
    EXPECT_EQ(file.assignments[0].taskGuid, file.tasks[1].guid);
    EXPECT_FALSE(file.assignments[1].resourceId);
    EXPECT_EQ(file.assignments[1].completePhases, 1U);

    ASSERT_EQ(file.links.size(), 1U);
    EXPECT_EQ(file.links[0].predecessor, 1U);
    EXPECT_EQ(file.links[0].successor, 2U);
    EXPECT_EQ(inspect::linkTypeText(file.links[0].type), "finish-start");
    const bool later = GetParam() == layout::VersionFolder::Project2010;
    EXPECT_EQ(file.links[0].lag.tenths, later ? 800 : 4800);
    EXPECT_EQ(file.complaints.lines(),
              (std::vector<std::string>{"TBkndTask: places in the sheet repeat: readers that go by them show "
                                        "another order: 2 rows at 2"}));
}

TEST_P(ExportedFile, ShowsCalendarsAsTheyWere) {
    const auto night = std::make_shared<MPPCalendar>();
    night->name = "Night";
    night->isBaseCalendar = true;
    night->defaultWorkWeek = std::make_shared<MPPCalendarWorkWeek>();
    night->defaultWorkWeek->mondayWorkRanges = ranges({{0, 4}, {20, 0}});
    night->defaultWorkWeek->sundayWorkRanges = ranges({});
    auto holiday = std::make_shared<MPPCalendarException>();
    holiday->startDate = kMonday;
    holiday->endDate = kMonday.advancedBy(kDay);
    holiday->name = "Fair";
    night->exceptions.push_back(holiday);
    auto week = std::make_shared<MPPCalendarWorkWeek>(*night->defaultWorkWeek);
    week->startDate = kMonday;
    week->endDate = kMonday.advancedBy(6 * kDay);
    week->name = "Rush";
    night->workWeeks.push_back(week);
    _plan.project.baseCalendars.push_back(night);
    _plan.resource("Ann")->calendar.setRecord(Plan::calendarOf(night));

    const inspect::ProjectFile file = exported(_plan.project);
    ASSERT_EQ(file.calendars.size(), 4U);
    EXPECT_EQ(file.calendars[0].name, "Standard");
    const inspect::Calendar& shown = file.calendars[2];
    EXPECT_EQ(shown.name, "Night");
    EXPECT_FALSE(shown.baseId);
    ASSERT_TRUE(shown.week[1]);
    ASSERT_EQ(shown.week[1]->size(), 2U);
    EXPECT_EQ(shown.week[1]->at(1).start, 20 * 600U);
    EXPECT_EQ(shown.week[1]->at(1).end, 24 * 600U);
    ASSERT_TRUE(shown.week[0]);
    EXPECT_TRUE(shown.week[0]->empty());
    EXPECT_FALSE(shown.week[2]);
    ASSERT_EQ(shown.exceptions.size(), 1U);
    EXPECT_EQ(shown.exceptions[0].name, "Fair");
    EXPECT_EQ(inspect::dayText(shown.exceptions[0].lastDay), "2026-03-03");
    ASSERT_EQ(shown.workWeeks.size(), 1U);
    EXPECT_EQ(shown.workWeeks[0].name, "Rush");
    EXPECT_EQ(inspect::dayText(shown.workWeeks[0].firstDay), "2026-03-02");
    EXPECT_EQ(file.resources[1].calendarId, file.calendars[3].id);
    EXPECT_EQ(file.calendars[3].baseId, shown.id);
    EXPECT_EQ(file.complaints.lines(), std::vector<std::string>{});
}

} // namespace
} // namespace brackwater::test
