#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskPass.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTaskAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPConstraint.h"
#include "Platform/Threads/BlocksAhead.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/ExportProgress.h"
#include "Platform/Values/ProcessState.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEProjectMapper.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEAssignmentMapper.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskMapper.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataMapper.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace brackwater {

namespace {

template <typename Record>
void append(std::vector<Record>& records, std::vector<Record>& added) {
    records.insert(records.end(), std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
}

} // namespace

void MSPETaskPass::mapTasksFrom(std::optional<XMLElement> topTask, MSPEXMLAdapter& tasks, MSPEXMLAdapter& assignments) {
    const Plan plan = planTasks(mapper(), _scenario, topTask);
    const Blocks blocks(plan.size());
    std::vector<Records> mappedAhead(blocks.count());
    BlocksAhead ahead(blocks, mapper()->isWorthAHelper(plan.size()), [&](std::size_t block) {
        mappedAhead[block] = mapAhead(plan, blocks.beginOf(block), blocks.endOf(block));
    });
    for (std::size_t block = 0; block < blocks.count(); ++block) {
        if (ahead.take(block))
            join(std::exchange(mappedAhead[block], {}));
        else
            mapTasks(plan, blocks.beginOf(block), blocks.endOf(block), tasks, assignments);
        tellProgress(blocks.endOf(block));
    }
}

void MSPETaskPass::mapTasks(const Plan& plan, std::size_t begin, std::size_t end, MSPEXMLAdapter& tasks,
                            MSPEXMLAdapter& assignments) const {
    MSPEMapper::continueWith(static_cast<std::int64_t>(begin), plan[begin].assignmentUID);
    for (std::size_t number = begin; number < end; ++number)
        mapTask(plan[number], tasks, assignments);
}

void MSPETaskPass::mapTask(const MSPEPlannedTask& planned, MSPEXMLAdapter& tasks, MSPEXMLAdapter& assignments) const {
    assertThat(!planned.isGroup || !planned.isSplit, "Task group and split task are mutualy exclusive.");

    const auto task = MSPETaskMapper(mapper()).newTaskFromZELBTask(planned.element, planned.parent);
    tasks.addChild(task);
    TimephasedData timephasedData;
    if (planned.isSplit)
        timephasedData =
            MSPETimephasedDataMapper(mapper()).newTimephasedDataFromZelbSplitTask(*planned.element, _scenario);
    task->addChildElementWithName("OutlineLevel", std::to_string(planned.level));

    if (planned.numberOfAssignments > 0)
        addAssignments(*planned.element, timephasedData, assignments);
    else if (!planned.isGroup)
        addDummyAssignment(*planned.element, timephasedData, assignments);
}

void MSPETaskPass::addAssignments(XMLElement task, const TimephasedData& timephasedData,
                                  MSPEXMLAdapter& assignments) const {
    MSPEAssignmentMapper assignmentMapper(mapper(), task);
    for (const auto& assignment : assignmentMapper.zelbAssignments()) {
        const auto element = assignmentMapper.newAssignmentFromZELBAssignment(assignment);
        assignments.addChild(element);
        if (timephasedData)
            MSPEAssignmentMapper::addTimephasedData(*timephasedData, assignmentMapper.UID(), *element);
    }
}

void MSPETaskPass::addDummyAssignment(XMLElement task, const TimephasedData& timephasedData,
                                      MSPEXMLAdapter& assignments) const {
    const auto id = task.attributeView("id");
    if (!id)
        return;
    assertThat(MSPEProjectMapper::ofMapper(mapper()).scheduledTasks().find(*id) != nullptr,
               "Can not find task with UID={} in the list of scheduled tasks.", *id);

    std::int64_t uid = -1;
    const auto element = MSPEAssignmentMapper::newDummyAssignmentForTaskId(*id, &uid, mapper());
    assertThat(uid >= 1, "Incorrect UID for dummy assignment ({}).", uid);
    assignments.addChild(element);
    if (timephasedData)
        MSPEAssignmentMapper::addTimephasedData(*timephasedData, uid, *element);
}

// On the helper's thread, which needs a project that takes the records.
MSPETaskPass::Records MSPETaskPass::mapAhead(const Plan& plan, std::size_t begin, std::size_t end) const {
    const auto project = std::make_shared<MSPEXMLProjectAdapter>("Project", mapper());
    mapper()->setMspdiProject(project);
    const auto tasks = project->addChildElementWithName("Tasks");
    const auto assignments = project->addChildElementWithName("Assignments");
    mapTasks(plan, begin, end, *tasks, *assignments);
    MPPProject& mapped = *project->mppDomObject();
    return {std::move(mapped.tasks), std::move(mapped.assignments), std::move(mapped.extendedAttributes),
            mapper()->takeConstraints()};
}

void MSPETaskPass::join(Records records) const {
    MPPProject& project = *mapper()->mspdiProject()->mppDomObject();
    append(project.tasks, records.tasks);
    append(project.assignments, records.assignments);
    append(project.extendedAttributes, records.extendedAttributes);
    for (auto& constraint : records.constraints) {
        constraint->ID = ++processState().links;
        mapper()->addConstraint(std::move(constraint));
    }
}

void MSPETaskPass::tellProgress(std::size_t mapped) const {
    if (ExportProgress* const progress = mapper()->progress())
        progress->advance(ExportPhase::Mapping, mapped, MSPEProjectMapper::ofMapper(mapper()).scheduledTasks().size());
}

} // namespace brackwater
