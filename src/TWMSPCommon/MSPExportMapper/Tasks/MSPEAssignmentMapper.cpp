#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEAssignmentMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTimephasedDataAdapter.h"
#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaselineMappers.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEIdMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEProjectMapper.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskDates.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataMapper.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

namespace brackwater {

namespace {

using Kind = MSPEAssignmentMapper::ResourceKind;

// The target's UID for an assignment without a resource.
constexpr std::string_view kNoResourceUID = "-65535";

// A quantity of material is written as hours of work.
constexpr double kSecondsOfMaterialUnit = 3600.0;

Kind kindFromType(std::string_view type) {
    if (type == "Staff")
        return Kind::Staff;
    if (type == "Equipment")
        return Kind::Equipment;
    if (type == "Material")
        return Kind::Material;
    if (type == "Group")
        return Kind::Group;
    return Kind::Other;
}

// A missing or empty attribute counts as one unit.
std::string_view unitsText(XMLElement assignment) {
    const auto text = assignment.attributeView("units");
    return text && !text->empty() ? *text : std::string_view("1");
}

// The children that assignments with and without a resource share, in the order of the target.
void addMilestoneAndProgress(const MSPEScheduledTaskInfo& info, MSPEXMLAssignmentAdapter& element) {
    const bool isMilestone = info.taskType() == MSPEScheduledTaskInfo::TaskType::Milestone;
    element.addChildElementWithName("Milestone", isMilestone ? "1" : "0");
    if (const std::int32_t percent = info.percentComplete(); percent > 0)
        element.addChildElementWithName("PercentWorkComplete", std::to_string(percent));
}

void addWork(const MSPEScheduledTaskInfo& info, double work, MSPEXMLAssignmentAdapter& element) {
    const std::string text = MSPIUtilities::mppToMspdiDuration(work);
    element.addChildElementWithName("Work", text);
    const double done = info.percentageComplete();
    element.addChildElementWithName("RemainingWork",
                                    done != 0 ? MSPIUtilities::mppToMspdiDuration((1 - done) * work) : text);
}

void addDates(const MSPETaskDates& dates, MSPEXMLAssignmentAdapter& element) {
    element.addChildElementWithName("Start", dates.mspdiStart);
    element.addChildElementWithName("Finish", dates.mspdiFinish);
}

// An unparsable date becomes one of the year 1: the failure must then mention its text, not the length of the span.
void checkSpanOfMaterial(std::string_view taskId, XMLElement assignment, const MSPEScheduledTaskInfo& info) {
    if (!info.startDate() || !info.endDate() || !MSPETimephasedDataInfo::isTooLong(*info.startDate(), *info.endDate()))
        return;
    const auto text = [&](const XMLQuery& child) {
        return assignment.parent() ? stringValueForXQuery(*assignment.parent(), child).value_or("") : std::string();
    };
    failAssertion(fmt::format("Material of task '{}' cannot be spread over the days from '{}' to '{}'.", taskId,
                              text(XMLQuery("start-date")), text(XMLQuery("end-date"))));
}

} // namespace

MSPEAssignmentMapper::MSPEAssignmentMapper(MSPEMapper* mapper, XMLElement zelbTask)
    : MSPEObjectMapperBase(mapper), _projectMapper(MSPEProjectMapper::ofMapper(mapper)),
      _zelbTaskId(zelbTask.attributeForName("id").value_or("")) {
    assertThat(!_zelbTaskId.empty(), "No Task ID is associated witgh the Assignment.");
    forEachChildElement(zelbTask, "assignment", [this](XMLElement element) {
        const ZelbAssignment assignment = readAssignment(element);
        _unitsOfKind[static_cast<std::size_t>(assignment.kind)] += assignment.units;
        _zelbAssignments.push_back(assignment);
    });
}

MSPEAssignmentMapper::ZelbAssignment MSPEAssignmentMapper::readAssignment(XMLElement element) const {
    const double units = doubleValue(unitsText(element));
    const auto resourceId = element.attributeView("idref");
    assertThat(resourceId && !resourceId->empty(), "No Resource ID is associated witgh the Assignment.");
    const auto resource =
        singleObjectForXQuery(_projectMapper.zelbScenario(), XMLQuery::childWithValue("resource", "id", *resourceId));
    assertThat(resource.has_value(), "Failed to find assigned resourse (id='{}').", *resourceId);
    const auto type = singleObjectForXQuery(*resource, "type");
    assertThat(type.has_value(), "No type specified for assigned resourse (id='{}').", *resourceId);
    std::string buffer;
    return {element, *resource, kindFromType(type->textView(buffer)), units};
}

std::shared_ptr<MSPEXMLAssignmentAdapter>
MSPEAssignmentMapper::newAssignmentFromZELBAssignment(const ZelbAssignment& assignment) {
    const MSPEScheduledTaskInfo& info = _projectMapper.scheduledTaskWithId(_zelbTaskId);
    auto element = std::make_shared<MSPEXMLAssignmentAdapter>("Assignment", mapper());

    _UID = MSPEMapper::nextAssignmentUID();
    const MSPEIdMapper& idMapper = *mapper()->idMapper();
    element->addChildElementWithName("UID", std::to_string(_UID));
    element->addChildElementWithName("TaskUID", idMapper.taskUIDFromZelbId(_zelbTaskId));
    element->addChildElementWithName("ResourceUID",
                                     idMapper.resourceUIDFromZelbResourceId(assignment.element.attributeView("idref")));
    addMilestoneAndProgress(info, *element);
    element->addChildElementWithName("Units", unitsText(assignment.element));
    const double work = workOf(assignment, info.effort());
    addWork(info, work, *element);
    addDates(_projectMapper.datesOfTask(info), *element);
    addBaselines(assignment, *element);
    if (assignment.kind == ResourceKind::Material)
        addMaterial(assignment, info, work, *element);
    return element;
}

// The work in seconds: each kind of resource shares the whole effort by units.
double MSPEAssignmentMapper::workOf(const ZelbAssignment& assignment, double effort) const {
    if (assignment.kind == ResourceKind::Material)
        return assignment.units * kSecondsOfMaterialUnit;
    const double units = _unitsOfKind[static_cast<std::size_t>(assignment.kind)];
    if (assignment.kind == ResourceKind::Other || !(units > 0))
        return effort;
    return effort * assignment.units / units;
}

void MSPEAssignmentMapper::addBaselines(const ZelbAssignment& assignment, MSPEXMLAssignmentAdapter& element) const {
    for (std::size_t number = 0; number < mapper()->zelbBaselines().size(); ++number) {
        const MSPEAssignmentBaselineMapper baselineMapper(number, mapper());
        if (const auto baseline = baselineMapper.newBaselineFromZelbAssignment(assignment.element))
            element.addChild(baseline);
    }
}

void MSPEAssignmentMapper::addMaterial(const ZelbAssignment& assignment, const MSPEScheduledTaskInfo& info, double work,
                                       MSPEXMLAssignmentAdapter& element) {
    checkSpanOfMaterial(_zelbTaskId, assignment.element, info);
    const MSPETaskDates& dates = _projectMapper.datesOfTask(info);
    const auto timephasedData = MSPETimephasedDataMapper(mapper()).newTimephasedDataFromAssignment(
        assignment.element, assignment.resource, dates.zelbStart.value_or(""), dates.zelbFinish.value_or(""), work);
    if (!timephasedData)
        return;
    _materialDays += timephasedData->size();
    assertThat(_materialDays <= MSPETimephasedDataInfo::kMostDays,
               "Timephased data of one task is longer than {} days.", MSPETimephasedDataInfo::kMostDays);
    addTimephasedData(*timephasedData, _UID, element);
}

std::shared_ptr<MSPEXMLAssignmentAdapter> MSPEAssignmentMapper::newDummyAssignmentForTaskId(std::string_view taskId,
                                                                                            std::int64_t* assignmentUID,
                                                                                            MSPEMapper* mapper) {
    MSPEProjectMapper& projectMapper = MSPEProjectMapper::ofMapper(mapper);
    const MSPEScheduledTaskInfo& info = projectMapper.scheduledTaskWithId(taskId);
    auto element = std::make_shared<MSPEXMLAssignmentAdapter>("Assignment", mapper);

    const std::int64_t uid = MSPEMapper::nextAssignmentUID();
    if (assignmentUID)
        *assignmentUID = uid;
    element->addChildElementWithName("UID", std::to_string(uid));
    element->addChildElementWithName("TaskUID", mapper->idMapper()->taskUIDFromZelbId(info.uid()));
    element->addChildElementWithName("ResourceUID", kNoResourceUID);
    addMilestoneAndProgress(info, *element);
    addWork(info, info.effort(), *element);
    addDates(projectMapper.datesOfTask(info), *element);
    return element;
}

void MSPEAssignmentMapper::addTimephasedData(const MSPETimephasedDataArray& timephasedData, std::int64_t assignmentUID,
                                             MSPEXMLAssignmentAdapter& assignment) {
    const std::string uid = std::to_string(assignmentUID);
    for (const auto& element : timephasedData) {
        element->insertChildElementWithName("UID", uid, 0);
        assignment.addChild(element);
    }
}

} // namespace brackwater
