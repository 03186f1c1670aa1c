#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskPass.h"

#include "MPPXMLDOMFilter/Model/MPPAssignment.h"
#include "MPPXMLDOMFilter/Model/MPPConstraint.h"
#include "MPPXMLDOMFilter/Model/MPPExtendedAttribute.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"
#include "Platform/Time/TimeZone.h"
#include "Platform/Values/ProcessState.h"
#include "support/MappedProject.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <map>

namespace brackwater::test {

namespace {

constexpr int kTasks = 3200; // enough for a helper thread

/// Tasks with what a helper has to hand over: links, assignments, splits, custom fields and baselines. `items` are
/// further items by the task's number.
ScenarioBuilder manyTasks(const std::map<int, std::string>& items = {}, std::string_view furtherChildren = "") {
    std::string children = "t1";
    for (int number = 2; number <= kTasks; ++number)
        children += fmt::format(",t{}", number);
    auto scenario =
        ScenarioBuilder::withRoots("r1", children + std::string(furtherChildren)).resource("r1", "type=Staff");
    for (int number = 1; number <= kTasks; ++number) {
        const auto further = items.find(number);
        scenario.task(fmt::format("t{}", number),
                      fmt::format("title=n{} priority={} effort=3600 {} {} {}", number, number % 7,
                                  number % 3 == 0 ? "assign=r1:0.5" : "",
                                  number > 1 ? fmt::format("after=t{}", number - 1) : "",
                                  further == items.end() ? "" : further->second),
                      number % 40 == 0 ? "<user-data><key>k</key><string>v</string></user-data>" : "");
    }
    return scenario;
}

/// All that a mapping shows: the log, the failure, and the records.
std::vector<std::string> outcomeOf(const ScenarioBuilder& scenario, int threads) {
    const SystemTimeZoneHold zone;
    const LogCapture log;
    processState() = ProcessState();
    MSPEMapper mapper(scenario.document(), tableOfContents(), {scenario.document()}, std::nullopt);
    mapper.setThreads(threads);
    std::string failure;
    try {
        mapper.map();
    } catch (const Exception& exception) {
        failure = exception.reason();
    }
    std::vector<std::string> outcome = log.lines();
    outcome.push_back("failure: " + failure);
    if (!mapper.mspdiXmlDoc())
        return outcome;
    const MPPProject& project = *mapper.mspdiXmlDoc()->rootElement()->mppDomObject();
    for (const auto& task : project.tasks)
        outcome.push_back(fmt::format("task {} {} {} {}", task->ID, task->title.value_or("-"), task->baselines.size(),
                                      task->extendedAttributes.size()));
    for (const auto& assignment : project.assignments)
        outcome.push_back(
            fmt::format("assignment of {} {}", assignment->task.pointer()->ID, assignment->assignmentUnits));
    for (const auto& link : project.constraints)
        outcome.push_back(fmt::format("link {} {} {}", link->ID, link->task1.pointer()->ID, link->task2.pointer()->ID));
    for (const auto& name : project.customTaskFieldNames)
        outcome.push_back("field " + name);
    return outcome;
}

} // namespace

TEST(TaskPass, HelperThreadChangesNeitherRecordsNorLogNorFailure) {
    const auto expectSame = [](const ScenarioBuilder& scenario, std::string_view failure) {
        const std::vector<std::string> alone = outcomeOf(scenario, 1);
        EXPECT_EQ(std::count(alone.begin(), alone.end(), fmt::format("failure: {}", failure)), 1) << alone.back();
        EXPECT_TRUE(outcomeOf(scenario, 2) == alone) << failure;
    };
    expectSame(manyTasks(), "");
    // Of two neighbouring blocks, the helper has one.
    for (const int number : {1025, 1225})
        expectSame(manyTasks({{number, "completion-percentage=2"}, {number + 1, "completion-percentage=3"}}),
                   "Incorrect value of percentComplete (2.000000). Must be from 0.0 to 1.0.");
    expectSame(manyTasks({{1075, "start-date=-"}, {1076, "duration=none"}}), "Task element 'start-date' not found.");
    expectSame(manyTasks({}, ",t7,t8"), "Duplicated Task UID='7' found (zelb Task id='t7').");
}

} // namespace brackwater::test
