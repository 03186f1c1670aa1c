// What mppinspect reads of a file that the exporter wrote. The golden files show the same for bundles: here stands what
// no bundle there holds or their texts do not show.
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

template <typename Record>
Record& addTo(std::vector<std::shared_ptr<Record>>& records) {
    records.push_back(std::make_shared<Record>());
    records.back()->ID = records.size();
    return *records.back();
}

class ExportedFile : public testing::TestWithParam<layout::VersionFolder> {
protected:
    inspect::ProjectFile exported() {
        const std::string source = _folder.path("Template.mpp"), output = _folder.path("Out.mpp");
        layout::writeCompoundFile(source, layout::templateTree(GetParam()));
        const CompoundFileLibrary library;
        MPPWriteFailure failure;
        EXPECT_TRUE(MPPProjectWriter::writeProject(&project, FileURL::fileURLWithPath(output, false),
                                                   FileURL::fileURLWithPath(source, false), &failure))
            << failure.entryPath << ": " << failure.reason;
        return decode(inspect::CompoundFile::open(output));
    }

    MPPProject project;

private:
    TempFolder _folder;
    LogCapture _log;
    ScopedTimeZone _zone{"UTC"};
};

INSTANTIATE_TEST_SUITE_P(BothFolders, ExportedFile,
                         testing::Values(layout::VersionFolder::Project2007, layout::VersionFolder::Project2010));

TEST_P(ExportedFile, ShowsMilestonesTextsAndBaselinesOfATaskInsideAnother) {
    MPPTask& build = addTo(project.tasks);
    MPPTask& walls = addTo(project.tasks);
    addTo(project.tasks);
    walls.parent = &build;
    walls.milestone = true;
    walls.customFieldValues = {"north", "", "red"};
    for (int n = 0; n < 3; ++n)
        walls.baselines.push_back(
            std::make_shared<MPPTaskBaseline>(MPPTaskBaseline{.duration = (n + 1) * 8 * kHour,
                                                              .cost = 9.5,
                                                              .fixedCost = 0,
                                                              .work = n + 1.0,
                                                              .start = kMonday.advancedBy(n * kDay),
                                                              .finish = std::nullopt}));

    const inspect::ProjectFile file = exported();
    ASSERT_EQ(file.tasks.size(), 4U);
    const inspect::Task& shown = file.tasks[2];
    EXPECT_EQ(shown.parentId, 1U);
    EXPECT_EQ(shown.depth, 2);
    EXPECT_EQ(shown.parentGuid, file.tasks[1].guid);
    EXPECT_TRUE(shown.milestone);
    EXPECT_FALSE(file.tasks[1].milestone);
    EXPECT_EQ(shown.texts, (inspect::TextFields{{1, "north"}, {3, "red"}}));
    ASSERT_EQ(shown.baselines.size(), 3U);
    EXPECT_EQ(inspect::textOf(shown.baselines.at(2).start), "2026-03-04 08:00");
    EXPECT_EQ(inspect::textOf(*shown.baselines.at(1).duration, file.units), "2d?");
    EXPECT_EQ(inspect::workText(*shown.baselines.at(2).work), "3h");
    EXPECT_EQ(shown.baselines.at(1).cost, 9.5);
}

TEST_P(ExportedFile, ShowsCostsAndTheNotesGuidsAndPhasesOfAssignments) {
    MPPTask& first = addTo(project.tasks);
    MPPTask& second = addTo(project.tasks);
    addTo(project.resources).setResourceTypeCost();
    MPPAssignment& assignment = addTo(project.assignments);
    assignment.task.setRecord(&first);
    assignment.resource.setRecord(project.resources[0].get());
    assignment.notes = "mornings";
    MPPAssignment& begun = addTo(project.assignments);
    begun.task.setRecord(&second);
    begun.work = 8;
    begun.actualWork = 2;

    const inspect::ProjectFile file = exported();
    ASSERT_EQ(file.resources.size(), 2U);
    EXPECT_EQ(file.resources[1].kind, inspect::ResourceKind::Cost);
    EXPECT_EQ(file.resources[1].placeInSheet, 2.0);
    ASSERT_EQ(file.assignments.size(), 2U);
    EXPECT_EQ(file.assignments[0].notes, "mornings");
    EXPECT_EQ(file.assignments[0].taskGuid, file.tasks[1].guid);
    EXPECT_EQ(file.assignments[0].resourceGuid, file.resources[1].guid);
    EXPECT_EQ(inspect::workText(file.assignments[1].work), "8h");
    EXPECT_EQ(file.assignments[1].completePhases, 1U);
}

TEST_P(ExportedFile, ShowsFreeInheritedAndNightlyDaysOfABaseCalendar) {
    MPPCalendar& night = addTo(project.baseCalendars);
    night.name = "Night";
    night.isBaseCalendar = true;
    night.defaultWorkWeek = std::make_shared<MPPCalendarWorkWeek>();
    night.defaultWorkWeek->sundayWorkRanges = std::make_shared<MPPRangeList>();
    const auto evening = std::make_shared<MPPCalendarTimeRange>();
    evening->start.emplace().setHours(20);
    evening->end.emplace();
    night.defaultWorkWeek->mondayWorkRanges = std::make_shared<MPPRangeList>(1, evening);

    const inspect::ProjectFile file = exported();
    ASSERT_EQ(file.calendars.size(), 3U);
    const inspect::Calendar& shown = file.calendars[2];
    EXPECT_FALSE(shown.baseId);
    ASSERT_TRUE(shown.week[0]);
    EXPECT_TRUE(shown.week[0]->empty());
    ASSERT_TRUE(shown.week[1]);
    EXPECT_EQ(shown.week[1]->at(0).start, 20 * 600U);
    EXPECT_EQ(shown.week[1]->at(0).end, 24 * 600U);
    EXPECT_FALSE(shown.week[2]);
    EXPECT_EQ(file.complaints.lines(), std::vector<std::string>{});
}

} // namespace
} // namespace brackwater::test
