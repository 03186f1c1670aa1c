#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEPostProcessor.h"

#include "support/ExpectException.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

// A model straight from the mapping: references are still UIDs.
struct UnresolvedModel {
    MPPProject project;
    MSPEPostProcessor::Constraints constraints;
    MSPEPostProcessor::Calendars calendars;
    MSPEPostProcessor::UidToIdMap taskIds;
    MSPEPostProcessor::UidToIdMap resourceIds;

    // Only the project's calendar.
    UnresolvedModel() {
        project.calendar.setProxyText("1");
        addCalendar(1, "Standard");
    }

    MPPCalendar& addCalendar(std::uint64_t number, const char* name, const char* baseUid = nullptr) {
        auto calendar = std::make_shared<MPPCalendar>();
        calendar->ID = number;
        calendar->name = name;
        calendar->isBaseCalendar = baseUid == nullptr;
        if (baseUid)
            calendar->baseCalendar.setProxyText(baseUid);
        else
            calendar->defaultWorkWeek = std::make_shared<MPPCalendarWorkWeek>();
        calendars.push_back(calendar);
        return *calendar;
    }
    MPPTask& addTask(const char* uid, std::uint64_t level) {
        auto task = std::make_shared<MPPTask>();
        task->ID = project.tasks.size();
        task->outlineLevel = level;
        taskIds.set(uid, static_cast<std::int64_t>(task->ID));
        project.tasks.push_back(task);
        return *task;
    }
    MPPResource& addResource(const char* uid) {
        auto resource = std::make_shared<MPPResource>();
        resource->ID = project.resources.size();
        resourceIds.set(uid, static_cast<std::int64_t>(resource->ID));
        project.resources.push_back(resource);
        return *resource;
    }
    MPPAssignment& addAssignment(const char* taskUid, const char* resourceUid) {
        auto assignment = std::make_shared<MPPAssignment>();
        assignment->task.setProxyText(taskUid);
        assignment->resource.setProxyText(resourceUid);
        project.assignments.push_back(assignment);
        return *assignment;
    }

    void run() { MSPEPostProcessor(project, constraints, calendars, taskIds, resourceIds).run(); }
    void expectFails(std::string_view message) {
        expectAssertion(message, [this] { run(); });
    }
};

std::vector<std::string> parentsOfLevels(const std::vector<std::uint64_t>& levels) {
    std::vector<std::shared_ptr<MPPTask>> tasks;
    for (const std::uint64_t level : levels) {
        tasks.push_back(std::make_shared<MPPTask>());
        tasks.back()->ID = tasks.size();
        tasks.back()->outlineLevel = level;
    }
    MSPEPostProcessor::makeTaskTreeFromTasks(tasks);
    std::vector<std::string> parents;
    for (const auto& task : tasks)
        parents.push_back(task->parent ? std::to_string(task->parent->ID) : "none");
    return parents;
}

} // namespace

TEST(PostProcessor, NegativeCalendarUidMeansNoCalendar) {
    UnresolvedModel model;
    MPPTask& task = model.addTask("0", 0);
    task.calendar.setProxyText("-1");
    model.calendars[0]->baseCalendar.setProxyText("-1");
    model.run();
    EXPECT_TRUE(task.calendar.isUnset());
    EXPECT_TRUE(model.calendars[0]->baseCalendar.isUnset());
}

TEST(PostProcessor, ProjectCalendarMustBeTheFirstAndStandard) {
    UnresolvedModel other;
    other.project.calendar.setProxyText("2");
    other.expectFails("Unexcpectad Project Calendar UID (2). Must be 1.");
    UnresolvedModel none;
    none.calendars.clear();
    none.expectFails("Can not find mapped Calendar with ID=1");
    UnresolvedModel renamed;
    renamed.calendars[0]->name = "standard";
    renamed.expectFails("Incorrect name of the project calendar ('standard'). Must be 'Standard'.");
    UnresolvedModel unset;
    unset.project.calendar.clear();
    unset.calendars.clear();
    unset.expectFails("Project has no calendar.");
    UnresolvedModel twice;
    twice.run();
    twice.expectFails("Unexpected calendar proxy class: MPPCalendar");
}

TEST(PostProcessor, NoOtherCalendarMayBeNamedStandard) {
    UnresolvedModel model;
    model.addCalendar(2, "Standard", "1");
    model.expectFails("Only standard project calendar may have and must have name \"Standard\".");
}

TEST(PostProcessor, MissingCalendarsFail) {
    UnresolvedModel base;
    base.addCalendar(2, "Anna", "9");
    base.expectFails("Can not find mapped Base Calendar with ID=9");
    UnresolvedModel task;
    task.addTask("0", 0).calendar.setProxyText("9");
    task.expectFails("Can not find mapped Calendar with ID=9");
    UnresolvedModel resource;
    resource.addResource("1").calendar.setProxyText("8");
    resource.expectFails("Can not find mapped Calendar with ID=8");
}

TEST(PostProcessor, UnknownUidsFail) {
    UnresolvedModel task;
    task.addAssignment("7", "-65535");
    task.expectFails("Can not find Task ID for Task with UID='7' in the map.");
    UnresolvedModel taskRecord;
    taskRecord.addAssignment("7", "-65535");
    taskRecord.taskIds.set("7", 4);
    taskRecord.expectFails("Can not find mapped Task with ID='4'");
    UnresolvedModel resource;
    resource.addTask("7", 0);
    resource.addAssignment("7", "3");
    resource.expectFails("Can not find Resource ID for Resource with UID='3' in the map.");
    UnresolvedModel resourceRecord;
    resourceRecord.addTask("7", 0);
    resourceRecord.addAssignment("7", "3");
    resourceRecord.resourceIds.set("3", 2);
    resourceRecord.expectFails("Can not find mapped Resource with ID='2'");
}

TEST(PostProcessor, IncompleteCustomFieldsFail) {
    constexpr const char* kClass = "Invalid object of class 'MSPEXMLExtendedAttributeAdapter' found in ";
    const auto field = std::make_shared<MPPExtendedAttribute>();
    field->fieldID = "1";
    const auto definition = std::make_shared<MPPExtendedAttribute>(*field);
    definition->alias = "Color";

    UnresolvedModel names;
    names.project.customTaskFieldNames = {"x"};
    names.expectFails("Do not expect any objects in MPPProject.customTaskFieldNames.");
    UnresolvedModel noAlias;
    noAlias.project.extendedAttributes = {field};
    noAlias.expectFails(std::string(kClass) + "MPPProject.customResourceFieldNames.");
    UnresolvedModel noValue;
    noValue.project.extendedAttributes = {definition};
    noValue.addTask("0", 0).extendedAttributes = {field};
    noValue.expectFails(std::string(kClass) + "MPPTask.customFieldValues.");
    UnresolvedModel noResourceValue;
    noResourceValue.project.extendedAttributes = {definition};
    noResourceValue.addResource("0").extendedAttributes = {field};
    noResourceValue.expectFails(std::string(kClass) + "MPPResource.customFieldsText.");
}

TEST(TaskTree, LevelsDetermineTheParents) {
    using testing::ElementsAre;
    EXPECT_THAT(parentsOfLevels({0, 1, 2, 1, 1, 2}), ElementsAre("none", "1", "2", "1", "1", "5"));
    EXPECT_THAT(parentsOfLevels({0, 0, 1, 2, 3, 1, 0}), ElementsAre("none", "none", "2", "3", "4", "2", "none"));
    EXPECT_THAT(parentsOfLevels({}), ElementsAre());
}

TEST(TaskTree, JumpingLevelFails) {
    expectAssertion("Broken list levels: taskLevel=2 maxLevel=0", [] { parentsOfLevels({0, 2}); });
    expectAssertion("Broken list levels: taskLevel=1 maxLevel=-1", [] { parentsOfLevels({1}); });
}

} // namespace brackwater::test
