#pragma once

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEOrderedMap.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace brackwater {

/// The last stage of the mapping: replaces UIDs with the records they refer to, converts custom fields to names and
/// values, derives the task tree from the outline levels, and checks the whole model. After it the project is ready for
/// the stream writers.
class MSPEPostProcessor {
public:
    using Calendars = std::vector<std::shared_ptr<MPPCalendar>>;
    using Constraints = std::vector<std::shared_ptr<MPPConstraint>>;
    using UidToIdMap = MSPEOrderedMap<std::string, std::int64_t>;

    /// All arguments must outlive the object. Calendars are referenced by ID; tasks and resources by UIDs, which the
    /// two maps convert to IDs.
    MSPEPostProcessor(MPPProject& project, const Constraints& constraints, const Calendars& calendars,
                      const UidToIdMap& taskUidToIdMap, const UidToIdMap& resourceUidToIdMap);

    /// Raises at the first inconsistency.
    void run();

    /// Sets each task's parent from the outline levels of the tasks, which are in tree order. Raises if a level rises
    /// by more than one.
    static void makeTaskTreeFromTasks(const std::vector<std::shared_ptr<MPPTask>>& tasks);

private:
    void resolveProjectCalendar();
    void resolveLinks();
    void resolveCalendars();
    void resolveCalendarsOfTasksAndResources();
    void resolveAssignments();
    void resolveCalendar(CalendarReference& reference, const char* notFoundFormat) const;
    void resolveTask(TaskReference& reference) const;
    void resolveResource(ResourceReference& reference) const;
    [[nodiscard]] std::shared_ptr<MPPCalendar> calendarWithID(std::int64_t number) const;

    MPPProject& _project;
    const Constraints& _constraints;
    const Calendars& _calendars;
    const UidToIdMap& _taskUidToIdMap;
    const UidToIdMap& _resourceUidToIdMap;
    MSPEOrderedMap<std::int64_t, MPPTask*> _tasksByID;
    MSPEOrderedMap<std::int64_t, MPPResource*> _resourcesByID;
    MSPEOrderedMap<std::int64_t, std::shared_ptr<MPPCalendar>> _calendarsByID;
};

} // namespace brackwater
