// Work, progress, costs and baselines of a corrected export, from the source to the view of another reader.
#include "DecodedFile.h"

#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "support/LogCapture.h"
#include "support/PlanBundle.h"
#include "support/ScenarioBuilder.h"
#include "support/ScopedTimeZone.h"
#include "support/TempFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

inspect::ProjectFile exported(const ScenarioBuilder& plan, const ScenarioBuilder& baseline) {
    const ScopedTimeZone zone("UTC");
    const TempFolder folder;
    const std::string bundle =
        writeBundle(folder, "Plan.zelb",
                    {.scenarios = {{"s1", "plan.xml", "Now"}, {"s2", "then.xml", "Then"}}, .windows = {{"s1", "s2"}}});
    folder.write("Plan.zelb/plan.xml", plan.text());
    folder.write("Plan.zelb/then.xml", baseline.text());
    LogCapture log;
    MSPEMPPExporter exporter(MSPEExportInfo{}, ExportMode::Corrected);
    EXPECT_TRUE(exporter.exportZelbBundle(FileURL::fileURLWithPath(bundle, true),
                                          FileURL::fileURLWithPath(folder.path("Out.mpp"), false),
                                          FileURL::fileURLWithPath(templateOfLayout("112"), true)))
        << log.joined();
    return decodedFile(folder.path("Out.mpp"));
}

std::string shown(const std::optional<inspect::Date>& date) { return date ? inspect::textOf(*date).substr(5) : "-"; }

// Hours of work, days of duration and whole money, each as whole = actual + remaining.
std::string shownWork(double whole, double done, double remaining) {
    constexpr double kHour = 60000.0;
    return fmt::format("{:.4g}h={:.4g}+{:.4g}", whole / kHour, done / kHour, remaining / kHour);
}
std::string shownCost(double whole, double done, double remaining) {
    return fmt::format("${:.6g}={:.6g}+{:.6g}", whole / 100, done / 100, remaining / 100);
}
std::string shownBaseline(const std::map<std::size_t, inspect::Baseline>& baselines) {
    if (!baselines.contains(0))
        return "";
    const inspect::Baseline& baseline = baselines.at(0);
    return fmt::format(" baseline {:.4g}h ${:.6g}", baseline.work.value_or(0) / 60000, baseline.cost.value_or(0) / 100);
}

std::string shown(const inspect::Task& task) {
    constexpr double kDay = 4800.0;
    return fmt::format("{} {}% {}% {:.4g}d={:.4g}+{:.4g} {} {} actual {} {} stop {} resume {}{}\n", task.title,
                       task.percentComplete, task.percentWorkComplete, task.duration.tenths / kDay,
                       task.actualDuration.tenths / kDay, task.remainingDuration.tenths / kDay,
                       shownWork(task.work, task.actualWork, task.remainingWork),
                       shownCost(task.cost, task.actualCost, task.remainingCost), shown(task.actualStart),
                       shown(task.actualFinish), shown(task.stop), shown(task.resume), shownBaseline(task.baselines));
}

std::string shown(const inspect::Assignment& assignment) {
    return fmt::format("{} on {} {:.4g}% {} {} stop {} resume {}{}\n", assignment.resourceId.value_or(0),
                       assignment.taskId, assignment.units / 100,
                       shownWork(assignment.work, assignment.actualWork, assignment.remainingWork),
                       shownCost(assignment.cost, assignment.actualCost, assignment.remainingCost),
                       shown(assignment.stop), shown(assignment.resume), shownBaseline(assignment.baselines));
}

std::string shown(const inspect::Resource& resource) {
    return fmt::format(
        "{} {} {}{}\n", resource.name, shownWork(resource.work, resource.actualWork, resource.remainingWork),
        shownCost(resource.cost, resource.actualCost, resource.remainingCost), shownBaseline(resource.baselines));
}

template <typename Record>
std::string allShown(const std::vector<Record>& records) {
    std::string text = "\n";
    for (const Record& record : records)
        text += shown(record);
    return text;
}

ScenarioBuilder withResources() {
    ScenarioBuilder plan = ScenarioBuilder::withRoots("r1,r2,r3", "t9,t5,t6");
    plan.resource("r1", "type=Staff name=Mason cost-per-hour=10 cost-per-use=5");
    plan.resource("r2", "type=Equipment name=Crane cost-per-hour=20");
    plan.resource("r3", "type=Material name=Sand cost-per-hour=3 cost-per-use=7");
    return plan;
}

TEST(CorrectedAmounts, MatchTheSourceAndAddUp) {
    ScenarioBuilder plan = withResources();
    plan.task("t9", "title=Wall type=group child=t1,t2,t3 duration=115200 start-date=2027-03-01T08:00:00Z "
                    "end-date=2027-03-04T17:00:00Z static-cost=40");
    plan.task("t1", "title=Half start-date=2027-03-01T08:00:00Z end-date=2027-03-02T17:00:00Z duration=57600 "
                    "effort=57600 effort-done=28800 static-cost=100 assign=r1 assign=r3:2.5");
    plan.task("t2", "title=Done start-date=2027-03-03T08:00:00Z end-date=2027-03-03T17:00:00Z duration=28800 "
                    "effort=27000 effort-done=27000 assign=r1:0.9375 assign=r2:2");
    plan.task("t3", "title=Mark type=milestone start-date=2027-03-04T17:00:00Z end-date=2027-03-04T17:00:00Z "
                    "duration=0");
    plan.task("t5", "title=Nobody start-date=2027-03-05T08:00:00Z end-date=2027-03-08T17:00:00Z duration=57600 "
                    "completion-percentage=0.5");
    plan.task("t6", "title=Effort start-date=2027-03-05T08:00:00Z end-date=2027-03-05T17:00:00Z duration=28800 "
                    "effort=5400");
    ScenarioBuilder baseline = withResources();
    baseline.task("t9", "type=group");
    baseline.task("t1", "effort=36000 duration=36000 static-cost=80 assign=r1 assign=r3:2");
    baseline.task("t2", "effort=28800 duration=28800 assign=r1 assign=r2:2");

    const inspect::ProjectFile file = exported(plan, baseline);
    EXPECT_EQ(allShown(file.tasks), R"(
Plan 50% 77% 1d=0.5+0.5 41h=31.5+9.5 $719.188=566.104+153.083 actual 03-01 08:00 - stop 03-01 17:00 resume 03-02 08:00 baseline 34h $590
Wall 67% 80% 4d=2.667+1.333 39.5h=31.5+8 $719.188=566.104+153.083 actual 03-01 08:00 - stop 03-01 17:00 resume 03-02 08:00 baseline 34h $590
Half 50% 50% 2d=1+1 16h=8+8 $279.5=139.75+139.75 actual 03-01 08:00 - stop 03-01 17:00 resume 03-02 08:00 baseline 10h $185
Done 100% 100% 1d=1+0 23.5h=23.5+0 $399.688=399.688+0 actual 03-03 08:00 03-03 17:00 stop 03-03 17:00 resume 03-03 17:00 baseline 24h $405
Mark 0% 0% 0d=0+0 0h=0+0 $0=0+0 actual - - stop - resume -
Nobody 50% 50% 2d=1+1 0h=0+0 $0=0+0 actual 03-05 08:00 - stop 03-05 17:00 resume 03-08 08:00
Effort 0% 0% 1d=0+1 1.5h=0+1.5 $0=0+0 actual - - stop - resume -
)");
    EXPECT_EQ(allShown(file.assignments), R"(
1 on 2 100% 16h=8+8 $165=82.5+82.5 stop 03-01 17:00 resume 03-02 08:00 baseline 10h $105
3 on 2 250% 2.5h=1.25+1.25 $14.5=7.25+7.25 stop 03-01 17:00 resume 03-02 08:00
1 on 3 93.75% 7.5h=7.5+0 $79.6875=79.6875+0 stop 03-03 17:00 resume 03-03 17:00 baseline 8h $85
2 on 3 200% 16h=16+0 $320=320+0 stop 03-03 17:00 resume 03-03 17:00 baseline 16h $320
0 on 4 100% 0h=0+0 $0=0+0 stop 03-04 17:00 resume 03-04 17:00
0 on 5 100% 16h=8+8 $0=0+0 stop 03-05 17:00 resume 03-08 08:00
0 on 6 100% 1.5h=0+1.5 $0=0+0 stop 03-05 08:00 resume 03-05 08:00
)");
    EXPECT_EQ(allShown(file.resources), R"(
 0h=0+0 $0=0+0
Mason 23.5h=15.5+8 $244.688=162.188+82.5 baseline 18h $190
Crane 16h=16+0 $320=320+0 baseline 16h $320
Sand 2.5h=1.25+1.25 $14.5=7.25+7.25
)");
}

} // namespace
} // namespace brackwater::test
