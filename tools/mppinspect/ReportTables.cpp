#include "ReportTables.h"

#include "WeekText.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {

using enum TextTable::Side;

std::string moneyText(double hundredths) { return hundredths == 0 ? std::string() : numberText(hundredths / 100); }
std::string hoursText(double work) { return work == 0 ? std::string() : workText(work); }
std::string unitsText(double hundredths) { return numberText(hundredths / 100) + "%"; }
std::string mark(bool yes, const char* text) { return yes ? text : ""; }
std::string number(std::size_t value) { return fmt::format("{}", value); }

TextTable summaryTable(const ProjectFile& project) {
    TextTable table({{"what", Left}, {"count", Right}});
    const auto add = [&table](const char* what, std::size_t count) { table.add({what, number(count)}); };
    add("entries", project.entries.size());
    add("properties", project.properties.size());
    add("tasks", project.tasks.size());
    add("milestones", static_cast<std::size_t>(std::ranges::count(project.tasks, true, &Task::milestone)));
    add("resources", project.resources.size());
    add("assignments", project.assignments.size());
    add("links", project.links.size());
    add("calendars", project.calendars.size());
    add("complaints", project.complaints.groups().size());
    return table;
}

TextTable entriesTable(const ProjectFile& project) {
    TextTable table({{"entry", Left}, {"bytes", Right}});
    for (const EntryInfo& entry : project.entries)
        table.add({entry.path + mark(entry.isStorage, "/"), entry.isStorage ? "" : fmt::format("{}", entry.size)});
    return table;
}

TextTable propertiesTable(const ProjectFile& project) {
    TextTable table({{"type", Left}, {"name", Left}, {"value", Left}});
    for (const ProjectProperty& property : project.properties)
        table.add({fmt::format("0x{:08X}", property.type), property.name, property.value});
    return table;
}

std::string taskMarks(const Task& task) {
    std::vector<std::string> marks;
    if (task.milestone)
        marks.emplace_back("milestone");
    if (task.effortDriven)
        marks.emplace_back("effort driven");
    return fmt::format("{}", fmt::join(marks, ", "));
}

TextTable tasksTable(const ProjectFile& project) {
    TextTable table({{"id", Right},
                     {"parent", Right, 6},
                     {"level", Right, 7},
                     {"title", Tree},
                     {"start", Left},
                     {"finish", Left},
                     {"duration", Right, 1},
                     {"work", Right, 3},
                     {"cost", Right, 3},
                     {"done", Right, 2},
                     {"type", Left, 9},
                     {"priority", Right, 9},
                     {"constraint", Left, 4},
                     {"constraint date", Left, 5},
                     {"deadline", Left, 4},
                     {"calendar", Right, 8},
                     {"marks", Left, 7}});
    for (const Task& task : project.tasks)
        table.add({number(task.uniqueId), task.parentId ? number(*task.parentId) : "", number(task.outlineLevel),
                   task.title, textOf(task.start), textOf(task.finish), textOf(task.duration, project.units),
                   hoursText(task.work), moneyText(task.cost), fmt::format("{}%", task.percentComplete),
                   taskTypeText(task.type), number(task.priority),
                   task.constraintType == 0 ? "" : constraintText(task.constraintType), textOf(task.constraintDate),
                   textOf(task.deadline), task.calendarId < 0 ? "" : fmt::format("{}", task.calendarId),
                   taskMarks(task)},
                  2 * std::min<std::size_t>(static_cast<std::size_t>(task.depth), 20));
    return table;
}

std::string rateText(const Resource& resource, double rate, std::uint16_t units) {
    if (rate == 0)
        return {};
    constexpr std::uint16_t perHour = 2;
    if (resource.kind == ResourceKind::Material)
        return numberText(rate); // for a piece, whatever the unit says
    return numberText(rate) + (units == perHour ? "/h" : fmt::format(" (unit {})", units));
}

TextTable resourcesTable(const ProjectFile& project) {
    TextTable table({{"id", Right},
                     {"name", Left},
                     {"kind", Left},
                     {"initials", Left, 6},
                     {"group", Left, 3},
                     {"code", Left, 6},
                     {"e-mail", Left, 4},
                     {"units", Right, 2},
                     {"rate", Right, 2},
                     {"overtime rate", Right, 7},
                     {"cost per use", Right, 7},
                     {"work", Right, 1},
                     {"cost", Right, 1},
                     {"from", Left, 5},
                     {"to", Left, 5},
                     {"calendar", Right, 8}});
    for (const Resource& resource : project.resources)
        table.add({number(resource.uniqueId), resource.name, kindText(resource.kind), resource.initials, resource.group,
                   resource.code, resource.email, unitsText(resource.maximumUnits),
                   rateText(resource, resource.standardRate, resource.standardRateUnits),
                   rateText(resource, resource.overtimeRate, resource.overtimeRateUnits),
                   moneyText(resource.costPerUse), hoursText(resource.work), moneyText(resource.cost),
                   textOf(resource.availableFrom), textOf(resource.availableTo),
                   resource.calendarId ? number(*resource.calendarId) : ""});
    return table;
}

TextTable assignmentsTable(const ProjectFile& project) {
    TextTable table({{"id", Right},
                     {"task", Right},
                     {"resource", Right},
                     {"start", Left},
                     {"finish", Left},
                     {"units", Right},
                     {"work", Right},
                     {"actual work", Right, 3},
                     {"remaining work", Right, 4},
                     {"cost", Right, 2},
                     {"phases", Right, 5}});
    for (const Assignment& assignment : project.assignments)
        table.add({number(assignment.id), number(assignment.taskId),
                   assignment.resourceId ? number(*assignment.resourceId) : "none", textOf(assignment.start),
                   textOf(assignment.finish), unitsText(assignment.units), workText(assignment.work),
                   hoursText(assignment.actualWork), hoursText(assignment.remainingWork), moneyText(assignment.cost),
                   assignment.plannedPhases ? number(*assignment.plannedPhases) : ""});
    return table;
}

TextTable linksTable(const ProjectFile& project) {
    TextTable table({{"id", Right}, {"from", Right}, {"to", Right}, {"type", Left}, {"lag", Right}});
    for (const Link& link : project.links)
        table.add({number(link.id), number(link.predecessor), number(link.successor), linkTypeText(link.type),
                   textOf(link.lag, project.units)});
    return table;
}

TextTable calendarsTable(const ProjectFile& project) {
    TextTable table({{"id", Right}, {"name", Left}, {"base", Right}, {"resource", Right}, {"week", Left}});
    for (const Calendar& calendar : project.calendars)
        table.add({number(calendar.id), calendar.name, calendar.baseId ? number(*calendar.baseId) : "",
                   calendar.resourceId ? number(*calendar.resourceId) : "", weekText(calendar)});
    return table;
}

TextTable complaintsTable(const ProjectFile& project) {
    TextTable table({{"where", Left}, {"what", Left}, {"places", Left}, {"count", Right}});
    for (const Complaints::Group& group : project.complaints.groups())
        table.add({group.where, group.what, fmt::format("{}", fmt::join(group.places, ", ")),
                   fmt::format("{}", group.count)});
    return table;
}

} // namespace

TextTable mainTable(const ProjectFile& project, Section section) {
    switch (section) {
    case Section::Summary:
        return summaryTable(project);
    case Section::Entries:
        return entriesTable(project);
    case Section::Properties:
        return propertiesTable(project);
    case Section::Tasks:
        return tasksTable(project);
    case Section::Resources:
        return resourcesTable(project);
    case Section::Assignments:
        return assignmentsTable(project);
    case Section::Links:
        return linksTable(project);
    case Section::Calendars:
        return calendarsTable(project);
    case Section::Complaints:
        break;
    }
    return complaintsTable(project);
}

TextTable summaryValues(const std::vector<SummaryValue>& values, const std::map<std::uint32_t, const char*>& names) {
    TextTable table({{"id", Right}, {"name", Left}, {"value", Left}});
    for (const SummaryValue& value : values) {
        const auto name = names.find(value.id);
        table.add({number(value.id), name == names.end() ? "" : name->second, value.text});
    }
    return table;
}

TextTable calendarExceptions(const ProjectFile& project) {
    TextTable table({{"calendar", Right},
                     {"first day", Left},
                     {"last day", Left},
                     {"times", Left},
                     {"recurs", Left},
                     {"name", Left}});
    for (const Calendar& calendar : project.calendars)
        for (const CalendarException& exception : calendar.exceptions)
            table.add({number(calendar.id), dayText(exception.firstDay), dayText(exception.lastDay),
                       rangesText(exception.ranges), exception.recurrence ? textOf(*exception.recurrence) : "",
                       exception.name});
    return table;
}

TextTable calendarWorkWeeks(const ProjectFile& project) {
    TextTable table({{"calendar", Right}, {"first day", Left}, {"last day", Left}, {"week", Left}, {"name", Left}});
    for (const Calendar& calendar : project.calendars)
        for (const WorkWeek& week : calendar.workWeeks)
            table.add(
                {number(calendar.id), dayText(week.firstDay), dayText(week.lastDay), weekText(week.week), week.name});
    return table;
}

namespace {

std::string textName(const std::map<std::size_t, std::string>& names, std::size_t position) {
    const auto name = names.find(position);
    return name == names.end() ? fmt::format("Text{}", position) : fmt::format("{} (Text{})", name->second, position);
}

template <typename Record>
TextTable textFields(const std::vector<Record>& records, const std::map<std::size_t, std::string>& names) {
    TextTable table({{"id", Right}, {"field", Left}, {"value", Left}});
    for (const Record& record : records)
        for (const auto& [position, text] : record.texts)
            table.add({number(record.uniqueId), textName(names, position), text});
    return table;
}

template <typename Record, typename Id>
TextTable baselines(const std::vector<Record>& records, Id Record::*id, const WorkingUnits& units) {
    TextTable table({{"id", Right},
                     {"baseline", Right},
                     {"start", Left},
                     {"finish", Left},
                     {"duration", Right},
                     {"work", Right},
                     {"cost", Right}});
    for (const Record& record : records)
        for (const auto& [n, baseline] : record.baselines)
            table.add({number(record.*id), number(n), textOf(baseline.start), textOf(baseline.finish),
                       baseline.duration ? textOf(*baseline.duration, units) : "",
                       baseline.work ? workText(*baseline.work) : "",
                       baseline.cost ? numberText(*baseline.cost / 100) : ""});
    return table;
}

template <typename Record, typename Id>
TextTable notes(const std::vector<Record>& records, Id Record::*id) {
    TextTable table({{"id", Right}, {"notes", Left}});
    for (const Record& record : records)
        if (!record.notes.empty())
            table.add({number(record.*id), record.notes});
    return table;
}

} // namespace

RecordTables taskTables(const ProjectFile& project) {
    return {textFields(project.tasks, project.taskTextNames), baselines(project.tasks, &Task::uniqueId, project.units),
            notes(project.tasks, &Task::uniqueId)};
}

RecordTables resourceTables(const ProjectFile& project) {
    return {textFields(project.resources, project.resourceTextNames),
            baselines(project.resources, &Resource::uniqueId, project.units),
            notes(project.resources, &Resource::uniqueId)};
}

RecordTables assignmentTables(const ProjectFile& project) {
    return {TextTable({}), baselines(project.assignments, &Assignment::id, project.units),
            notes(project.assignments, &Assignment::id)};
}

} // namespace brackwater::inspect
