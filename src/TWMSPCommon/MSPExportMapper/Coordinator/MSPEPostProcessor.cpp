#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEPostProcessor.h"

#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPECustomFields.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEModelCheck.h"

namespace brackwater {

namespace {

constexpr std::string_view kStandardCalendar = "Standard";
constexpr std::int64_t kProjectCalendarID = 1;
// Means no resource in an assignment.
constexpr std::int64_t kNoResource = -65535;

// The UID text of a reference; `kind` and `recordClass` are used in the failure for an already resolved reference.
template <typename Reference>
const std::string& proxyText(const Reference& reference, std::string_view kind, std::string_view recordClass) {
    assertThat(reference.isProxy(), "Unexpected {} proxy class: {}", kind, recordClass);
    return reference.proxyText();
}

const std::string& calendarProxy(const CalendarReference& reference) {
    return proxyText(reference, "calendar", "MPPCalendar");
}

bool isStandard(const MPPCalendar& calendar) { return calendar.name == kStandardCalendar; }

} // namespace

MSPEPostProcessor::MSPEPostProcessor(MPPProject& project, const Constraints& constraints, const Calendars& calendars,
                                     const UidToIdMap& taskUidToIdMap, const UidToIdMap& resourceUidToIdMap)
    : _project(project), _constraints(constraints), _calendars(calendars), _taskUidToIdMap(taskUidToIdMap),
      _resourceUidToIdMap(resourceUidToIdMap) {
    for (const auto& task : project.tasks)
        _tasksByID.set(static_cast<std::int64_t>(task->ID), task.get());
    for (const auto& resource : project.resources)
        _resourcesByID.set(static_cast<std::int64_t>(resource->ID), resource.get());
    for (const auto& calendar : calendars)
        _calendarsByID.set(static_cast<std::int64_t>(calendar->ID), calendar);
}

// Calendars come before the tasks and resources that refer to them; tree and checks come last.
void MSPEPostProcessor::run() {
    resolveProjectCalendar();
    resolveLinks();
    resolveCalendars();
    resolveCalendarsOfTasksAndResources();
    resolveAssignments();
    resolveCustomFields(_project);
    makeTaskTreeFromTasks(_project.tasks);
    verifyFixedProject(_project, _constraints, _calendars);
}

void MSPEPostProcessor::resolveProjectCalendar() {
    if (_project.calendar.isUnset())
        return;
    const std::int64_t number = integerValue(calendarProxy(_project.calendar));
    assertThat(number == kProjectCalendarID, "Unexcpectad Project Calendar UID ({}). Must be 1.", number);
    const auto calendar = calendarWithID(number);
    assertThat(calendar != nullptr, "Can not find mapped Calendar with ID={}", number);
    assertThat(isStandard(*calendar), "Incorrect name of the project calendar ('{}'). Must be 'Standard'.",
               calendar->name.value_or("(null)"));
    _project.calendar.setRecord(calendar);
    _project.standardCalendar = calendar;
}

void MSPEPostProcessor::resolveLinks() {
    for (const auto& constraint : _constraints) {
        resolveTask(constraint->task1);
        resolveTask(constraint->task2);
    }
}

void MSPEPostProcessor::resolveCalendars() {
    for (const auto& calendar : _calendars) {
        resolveCalendar(calendar->baseCalendar, "Can not find mapped Base Calendar with ID={}");
        if (calendar->isBaseCalendar)
            _project.baseCalendars.push_back(calendar);
        assertThat((calendar == _project.standardCalendar) == isStandard(*calendar),
                   "Only standard project calendar may have and must have name \"Standard\".");
    }
}

void MSPEPostProcessor::resolveCalendarsOfTasksAndResources() {
    constexpr const char* kNotFound = "Can not find mapped Calendar with ID={}";
    for (const auto& task : _project.tasks)
        resolveCalendar(task->calendar, kNotFound);
    for (const auto& resource : _project.resources)
        resolveCalendar(resource->calendar, kNotFound);
}

void MSPEPostProcessor::resolveAssignments() {
    for (const auto& assignment : _project.assignments) {
        resolveTask(assignment->task);
        resolveResource(assignment->resource);
    }
}

// A negative number means no calendar.
void MSPEPostProcessor::resolveCalendar(CalendarReference& reference, const char* notFoundFormat) const {
    if (reference.isUnset())
        return;
    const std::int64_t number = integerValue(calendarProxy(reference));
    if (number < 0) {
        reference.clear();
        return;
    }
    auto calendar = calendarWithID(number);
    if (!calendar)
        failAssertion(fmt::format(fmt::runtime(notFoundFormat), number));
    reference.setRecord(std::move(calendar));
}

// The table is keyed by the records' own IDs, so the result always has the requested ID. The same applies to resources.
void MSPEPostProcessor::resolveTask(TaskReference& reference) const {
    if (reference.isUnset())
        return;
    const std::string& uid = proxyText(reference, "task", "MPPTask");
    const std::int64_t* number = _taskUidToIdMap.find(uid);
    assertThat(number != nullptr, "Can not find Task ID for Task with UID='{}' in the map.", uid);
    MPPTask* const* task = _tasksByID.find(*number);
    assertThat(task != nullptr, "Can not find mapped Task with ID='{}'", *number);
    reference.setRecord(*task);
}

void MSPEPostProcessor::resolveResource(ResourceReference& reference) const {
    if (reference.isUnset())
        return;
    const std::string& uid = proxyText(reference, "resource", "MPPResource");
    if (integerValue(uid) == kNoResource) {
        reference.clear();
        return;
    }
    const std::int64_t* number = _resourceUidToIdMap.find(uid);
    assertThat(number != nullptr, "Can not find Resource ID for Resource with UID='{}' in the map.", uid);
    MPPResource* const* resource = _resourcesByID.find(*number);
    assertThat(resource != nullptr, "Can not find mapped Resource with ID='{}'", *number);
    reference.setRecord(*resource);
}

std::shared_ptr<MPPCalendar> MSPEPostProcessor::calendarWithID(std::int64_t number) const {
    const std::shared_ptr<MPPCalendar>* found = _calendarsByID.find(number);
    return found != nullptr ? *found : nullptr;
}

void MSPEPostProcessor::makeTaskTreeFromTasks(const std::vector<std::shared_ptr<MPPTask>>& tasks) {
    // Entry n is the last task on level n.
    std::vector<MPPTask*> path;
    for (const auto& task : tasks) {
        const std::uint64_t level = task->outlineLevel;
        assertThat(level <= path.size(), "Broken list levels: taskLevel={} maxLevel={}", level,
                   static_cast<std::int64_t>(path.size()) - 1);
        path.resize(level);
        task->parent = path.empty() ? nullptr : path.back();
        path.push_back(task.get());
    }
}

} // namespace brackwater
