#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskTreeWalk.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/ExportProgress.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEProjectMapper.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEAssignmentMapper.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskMapper.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataMapper.h"

namespace brackwater {

namespace {

enum class Child : std::size_t { Type, Split, Assignment, ChildTask };

constexpr MSPEChildNames kChildNames(std::array<std::string_view, 4>{"type", "split", "assignment", "child-task"});

using Children = MSPEChildElements<Child, kChildNames.size()>;

} // namespace

void MSPETaskTreeWalk::walkFrom(std::optional<XMLElement> topTask) {
    const std::size_t tasks = MSPEProjectMapper::ofMapper(mapper()).scheduledTasks().size();
    mapTask(topTask);
    std::size_t mapped = 1;
    while (!_groups.empty()) {
        const auto child = _groups.back().children.nextChild();
        if (!child) {
            _groups.pop_back();
            continue;
        }
        mapTask(child);
        if (ExportProgress* const progress = mapper()->progress())
            progress->advance(ExportPhase::Mapping, ++mapped, tasks);
    }
}

void MSPETaskTreeWalk::mapTask(std::optional<XMLElement> zelbTask) {
    std::optional<Children> children;
    if (zelbTask)
        children.emplace(*zelbTask, kChildNames);
    const bool isGroup = children && children->text(Child::Type) == "group";
    const bool isSplit = children && children->has(Child::Split);
    assertThat(!isGroup || !isSplit, "Task group and split task are mutualy exclusive.");

    const std::optional<XMLElement> parent = _groups.empty() ? std::nullopt : std::optional(_groups.back().element);
    const auto task = MSPETaskMapper(mapper()).newTaskFromZELBTask(zelbTask, parent);
    _tasks.addChild(task);
    TimephasedData timephasedData;
    if (isSplit)
        timephasedData = MSPETimephasedDataMapper(mapper()).newTimephasedDataFromZelbSplitTask(*zelbTask, _scenario);
    task->addChildElementWithName("OutlineLevel", std::to_string(_groups.size()));

    if (children->has(Child::Assignment))
        addAssignments(*zelbTask, timephasedData);
    else if (!isGroup)
        addDummyAssignment(*zelbTask, timephasedData);
    if (isGroup)
        _groups.push_back({*zelbTask, {_scenario, *zelbTask, "child-task", "task"}});
}

void MSPETaskTreeWalk::addAssignments(XMLElement task, const TimephasedData& timephasedData) {
    MSPEAssignmentMapper assignmentMapper(mapper(), task);
    for (const auto& assignment : assignmentMapper.zelbAssignments()) {
        const auto element = assignmentMapper.newAssignmentFromZELBAssignment(assignment);
        _assignments.addChild(element);
        if (timephasedData)
            MSPEAssignmentMapper::addTimephasedData(*timephasedData, assignmentMapper.UID(), *element);
    }
}

void MSPETaskTreeWalk::addDummyAssignment(XMLElement task, const TimephasedData& timephasedData) {
    const auto id = task.attributeView("id");
    if (!id)
        return;
    assertThat(MSPEProjectMapper::ofMapper(mapper()).scheduledTasks().find(*id) != nullptr,
               "Can not find task with UID={} in the list of scheduled tasks.", *id);

    std::int64_t uid = -1;
    const auto element = MSPEAssignmentMapper::newDummyAssignmentForTaskId(*id, &uid, mapper());
    assertThat(uid >= 1, "Incorrect UID for dummy assignment ({}).", uid);
    _assignments.addChild(element);
    if (timephasedData)
        MSPEAssignmentMapper::addTimephasedData(*timephasedData, uid, *element);
}

} // namespace brackwater
