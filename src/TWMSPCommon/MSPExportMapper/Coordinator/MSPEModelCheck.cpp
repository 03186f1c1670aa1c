#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEModelCheck.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "Platform/Values/Exception.h"

#include <array>
#include <string_view>

namespace brackwater {

namespace {

constexpr std::string_view kNothing = "(null)";
// The class of an unresolved reference.
constexpr std::string_view kProxy = "NSString";

void verifyProject(const MPPProject& project) {
    assertThat(!project.calendar.isUnset(), "Project has no calendar.");
    assertThat(!project.calendar.isProxy(), "Project Calendar. Unexpected object: {}", kProxy);
}

void verifyTasks(const MPPProject& project) {
    for (const auto& task : project.tasks)
        assertThat(task != nullptr, "Tasks collection. Unexpected object: {}", kNothing);
}

void verifyConstraints(const std::vector<std::shared_ptr<MPPConstraint>>& constraints) {
    for (const auto& link : constraints) {
        assertThat(link != nullptr, "Constraints collection. Unexpected object: {}", kNothing);
        assertThat(!link->task1.isProxy(), "MPPConstraint ID={}. Unexpected MPPConstraint.task1 class: {}", link->ID,
                   kProxy);
        assertThat(!link->task2.isProxy(), "MPPConstraint ID={}. Unexpected MPPConstraint.task2 class: {}", link->ID,
                   kProxy);
    }
}

void verifyResources(const MPPProject& project) {
    for (const auto& resource : project.resources) {
        assertThat(resource != nullptr, "Resources collection. Unexpected object: {}", kNothing);
        assertThat(!resource->calendar.isProxy(), "Resource ID={}. Unexpected Resource.calendar class: {}",
                   resource->ID, kProxy);
    }
}

void verifyAssignments(const MPPProject& project) {
    for (const auto& assignment : project.assignments) {
        assertThat(assignment != nullptr, "Assignments collection. Unexpected object: {}", kNothing);
        assertThat(!assignment->task.isProxy(), "Assignment ID={}. Unexpected Assignment.task class: {}",
                   assignment->ID, kProxy);
        assertThat(!assignment->resource.isProxy(), "Assignment ID={}. Unexpected Assignment.resource class: {}",
                   assignment->ID, kProxy);
    }
}

void verifyCalendar(const MPPCalendar& calendar) {
    const bool hasBase = !calendar.baseCalendar.isUnset();
    assertThat(!calendar.baseCalendar.isProxy(), "Calendar ID={}. Unexpected Calendar.baseCalendar class: {}",
               calendar.ID, kProxy);
    assertThat(calendar.isBaseCalendar || hasBase,
               "Calendar must be either base calendar itself, or have base calendar.");
    assertThat(!calendar.isBaseCalendar || !hasBase,
               "Calendar can not be base calendar itself and have base calendar.");
    assertThat(!calendar.isBaseCalendar || calendar.defaultWorkWeek, "Base calendar must have default work week.");
    if (calendar.defaultWorkWeek)
        verifyWorkWeek(calendar.defaultWorkWeek);
    for (const auto& workWeek : calendar.workWeeks)
        verifyWorkWeek(workWeek);
    for (const auto& exception : calendar.exceptions)
        verifyException(exception);
}

void verifyDay(const MPPRangeList& ranges, std::string_view day) {
    for (const auto& range : ranges) {
        assertThat(range != nullptr, "Calendars WorkWeek {}WorkRanges collection. Unexpected object: {}", day,
                   kNothing);
        assertThat(range->start.has_value(), "Calendars WorkWeek {}WorkRange start. Unexpected object: {}", day,
                   kNothing);
        assertThat(range->end.has_value(), "Calendars WorkWeek {}WorkRange end. Unexpected object: {}", day, kNothing);
    }
}

} // namespace

void verifyFixedProject(const MPPProject& project, const std::vector<std::shared_ptr<MPPConstraint>>& constraints,
                        const std::vector<std::shared_ptr<MPPCalendar>>& calendars) {
    verifyProject(project);
    verifyTasks(project);
    verifyConstraints(constraints);
    verifyResources(project);
    verifyAssignments(project);
    for (const auto& calendar : calendars) {
        assertThat(calendar != nullptr, "Calendars collection. Unexpected object: {}", kNothing);
        verifyCalendar(*calendar);
    }
}

void verifyWorkWeek(const std::shared_ptr<MPPCalendarWorkWeek>& workWeek) {
    static constexpr std::array<std::string_view, 7> kDays = {"sunday",   "monday", "tuesday", "wednesday",
                                                              "thursday", "friday", "saturday"};
    assertThat(workWeek != nullptr, "Calendar defaultWorkWeek or WorkWeeks collection. Unexpected object: {}",
               kNothing);
    const auto days = workWeek->days();
    for (std::size_t i = 0; i < kDays.size(); ++i)
        if (const MPPDayRanges& ranges = *days[i])
            verifyDay(*ranges, kDays[i]);
}

void verifyException(const std::shared_ptr<MPPCalendarException>& exception) {
    assertThat(exception != nullptr, "Calendar Exceptions collection. Unexpected object: {}", kNothing);
    for (const auto& range : exception->workRanges) {
        assertThat(range != nullptr, "Calendar Exception WorkRanges collection. Unexpected object: {}", kNothing);
        assertThat(range->start.has_value(), "Calendar Exception WorkRange start. Unexpected object: {}", kNothing);
        assertThat(range->end.has_value(), "Calendar Exception WorkRange end. Unexpected object: {}", kNothing);
    }
}

} // namespace brackwater
