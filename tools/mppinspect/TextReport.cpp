#include "TextReport.h"

#include "TextTable.h"
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

/// Appends headings, tables and the notes that go with them.
class Page {
public:
    void heading(std::string_view text, std::size_t count) { _text += fmt::format("{} ({})\n", text, count); }
    void line(std::string_view text) { _text += fmt::format("{}\n", text); }
    void table(const TextTable& table) {
        if (!table.empty())
            table.appendTo(_text);
    }
    // A further table of a section, told only where it has rows.
    void table(std::string_view title, const TextTable& table) {
        if (table.empty())
            return;
        _text += fmt::format("\n{}\n", title);
        table.appendTo(_text);
    }
    [[nodiscard]] std::string take() { return std::move(_text); }

private:
    std::string _text;
};

std::string summaryPage(const ProjectFile& project) {
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
    Page page;
    page.line(fmt::format("Document: {}", printable(fmt::format("{}", fmt::join(project.compObj, ", ")))));
    page.line(fmt::format("Folder: {}", project.folder));
    page.table(table);
    return page.take();
}

std::string entriesPage(const ProjectFile& project) {
    TextTable table({{"entry", Left}, {"bytes", Right}});
    for (const EntryInfo& entry : project.entries)
        table.add(
            {printable(entry.path) + mark(entry.isStorage, "/"), entry.isStorage ? "" : fmt::format("{}", entry.size)});
    Page page;
    page.heading("Entries", project.entries.size());
    page.table(table);
    return page.take();
}

TextTable summaryValues(const std::vector<SummaryValue>& values, const std::map<std::uint32_t, const char*>& names) {
    TextTable table({{"id", Right}, {"name", Left}, {"value", Left}});
    for (const SummaryValue& value : values) {
        const auto name = names.find(value.id);
        table.add({number(value.id), name == names.end() ? "" : name->second, printable(value.text)});
    }
    return table;
}

std::string propertiesPage(const ProjectFile& project) {
    TextTable table({{"type", Left}, {"name", Left}, {"value", Left}});
    for (const ProjectProperty& property : project.properties)
        table.add({fmt::format("0x{:08X}", property.type), property.name, printable(property.value)});
    Page page;
    page.heading("Properties", project.properties.size());
    page.table(table);
    page.table("Summary information", summaryValues(project.summary, {{1, "code page"},
                                                                      {2, "title"},
                                                                      {3, "subject"},
                                                                      {4, "author"},
                                                                      {5, "keywords"},
                                                                      {6, "comments"},
                                                                      {7, "template"},
                                                                      {8, "last author"},
                                                                      {9, "revision"},
                                                                      {10, "edit time"},
                                                                      {11, "printed"},
                                                                      {12, "created"},
                                                                      {13, "last saved"},
                                                                      {18, "program"},
                                                                      {19, "security"}}));
    page.table(
        "Document summary information",
        summaryValues(project.documentSummary, {{1, "code page"}, {2, "category"}, {14, "manager"}, {15, "company"}}));
    return page.take();
}

std::string textName(const std::map<std::size_t, std::string>& names, std::size_t position) {
    const auto name = names.find(position);
    return name == names.end() ? fmt::format("Text{}", position) : fmt::format("{} (Text{})", name->second, position);
}

template <typename Record>
TextTable textFields(const std::vector<Record>& records, const std::map<std::size_t, std::string>& names) {
    TextTable table({{"id", Right}, {"field", Left}, {"value", Left}});
    for (const Record& record : records)
        for (const auto& [position, text] : record.texts)
            table.add({number(record.uniqueId), printable(textName(names, position)), printable(text)});
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
            table.add({number(record.*id), printable(record.notes)});
    return table;
}

std::string fieldNamesLine(const std::map<std::size_t, std::string>& names) {
    std::vector<std::string> parts;
    parts.reserve(names.size());
    for (const auto& [position, name] : names)
        parts.push_back(fmt::format("Text{} = {}", position, printable(name)));
    return fmt::format("Names of fields: {}", fmt::join(parts, ", "));
}

std::string taskMarks(const Task& task) {
    std::vector<std::string> marks;
    if (task.milestone)
        marks.emplace_back("milestone");
    if (task.effortDriven)
        marks.emplace_back("effort driven");
    return fmt::format("{}", fmt::join(marks, ", "));
}

std::string tasksPage(const ProjectFile& project) {
    TextTable table({{"id", Right},
                     {"parent", Right},
                     {"level", Right},
                     {"title", Left},
                     {"start", Left},
                     {"finish", Left},
                     {"duration", Right},
                     {"work", Right},
                     {"cost", Right},
                     {"done", Right},
                     {"type", Left},
                     {"priority", Right},
                     {"constraint", Left},
                     {"constraint date", Left},
                     {"deadline", Left},
                     {"calendar", Right},
                     {"marks", Left}});
    for (const Task& task : project.tasks)
        table.add({number(task.uniqueId), task.parentId ? number(*task.parentId) : "", number(task.outlineLevel),
                   std::string(2 * std::min<std::size_t>(static_cast<std::size_t>(task.depth), 20), ' ') +
                       printable(task.title),
                   textOf(task.start), textOf(task.finish), textOf(task.duration, project.units), hoursText(task.work),
                   moneyText(task.cost), fmt::format("{}%", task.percentComplete), taskTypeText(task.type),
                   number(task.priority), task.constraintType == 0 ? "" : constraintText(task.constraintType),
                   textOf(task.constraintDate), textOf(task.deadline),
                   task.calendarId < 0 ? "" : fmt::format("{}", task.calendarId), taskMarks(task)});
    Page page;
    page.heading("Tasks", project.tasks.size());
    page.table(table);
    if (project.blankTaskRows != 0)
        page.line(fmt::format("Blank lines: {}", project.blankTaskRows));
    if (!project.taskTextNames.empty())
        page.line(fieldNamesLine(project.taskTextNames));
    page.table("Text fields of tasks", textFields(project.tasks, project.taskTextNames));
    page.table("Baselines of tasks", baselines(project.tasks, &Task::uniqueId, project.units));
    page.table("Notes of tasks", notes(project.tasks, &Task::uniqueId));
    return page.take();
}

std::string rateText(const Resource& resource, double rate, std::uint16_t units) {
    if (rate == 0)
        return {};
    constexpr std::uint16_t perHour = 2;
    if (resource.kind == ResourceKind::Material)
        return numberText(rate); // for a piece, whatever the unit says
    return numberText(rate) + (units == perHour ? "/h" : fmt::format(" (unit {})", units));
}

std::string resourcesPage(const ProjectFile& project) {
    TextTable table({{"id", Right},
                     {"name", Left},
                     {"kind", Left},
                     {"initials", Left},
                     {"group", Left},
                     {"code", Left},
                     {"e-mail", Left},
                     {"units", Right},
                     {"rate", Right},
                     {"overtime rate", Right},
                     {"cost per use", Right},
                     {"work", Right},
                     {"cost", Right},
                     {"from", Left},
                     {"to", Left},
                     {"calendar", Right}});
    for (const Resource& resource : project.resources)
        table.add(
            {number(resource.uniqueId), printable(resource.name), kindText(resource.kind), printable(resource.initials),
             printable(resource.group), printable(resource.code), printable(resource.email),
             unitsText(resource.maximumUnits), rateText(resource, resource.standardRate, resource.standardRateUnits),
             rateText(resource, resource.overtimeRate, resource.overtimeRateUnits), moneyText(resource.costPerUse),
             hoursText(resource.work), moneyText(resource.cost), textOf(resource.availableFrom),
             textOf(resource.availableTo), resource.calendarId ? number(*resource.calendarId) : ""});
    Page page;
    page.heading("Resources", project.resources.size());
    page.table(table);
    if (!project.resourceTextNames.empty())
        page.line(fieldNamesLine(project.resourceTextNames));
    page.table("Text fields of resources", textFields(project.resources, project.resourceTextNames));
    page.table("Baselines of resources", baselines(project.resources, &Resource::uniqueId, project.units));
    page.table("Notes of resources", notes(project.resources, &Resource::uniqueId));
    return page.take();
}

std::string assignmentsPage(const ProjectFile& project) {
    TextTable table({{"id", Right},
                     {"task", Right},
                     {"resource", Right},
                     {"start", Left},
                     {"finish", Left},
                     {"units", Right},
                     {"work", Right},
                     {"actual work", Right},
                     {"remaining work", Right},
                     {"cost", Right},
                     {"phases", Right}});
    for (const Assignment& assignment : project.assignments)
        table.add({number(assignment.id), number(assignment.taskId),
                   assignment.resourceId ? number(*assignment.resourceId) : "none", textOf(assignment.start),
                   textOf(assignment.finish), unitsText(assignment.units), workText(assignment.work),
                   hoursText(assignment.actualWork), hoursText(assignment.remainingWork), moneyText(assignment.cost),
                   assignment.plannedPhases ? number(*assignment.plannedPhases) : ""});
    Page page;
    page.heading("Assignments", project.assignments.size());
    page.table(table);
    page.table("Baselines of assignments", baselines(project.assignments, &Assignment::id, project.units));
    page.table("Notes of assignments", notes(project.assignments, &Assignment::id));
    return page.take();
}

std::string linksPage(const ProjectFile& project) {
    TextTable table({{"id", Right}, {"from", Right}, {"to", Right}, {"type", Left}, {"lag", Right}});
    for (const Link& link : project.links)
        table.add({number(link.id), number(link.predecessor), number(link.successor), linkTypeText(link.type),
                   textOf(link.lag, project.units)});
    Page page;
    page.heading("Links", project.links.size());
    page.table(table);
    return page.take();
}

std::string calendarsPage(const ProjectFile& project) {
    TextTable table({{"id", Right}, {"name", Left}, {"base", Right}, {"resource", Right}, {"week", Left}});
    TextTable exceptions(
        {{"calendar", Right}, {"first day", Left}, {"last day", Left}, {"times", Left}, {"name", Left}});
    TextTable workWeeks({{"calendar", Right}, {"first day", Left}, {"last day", Left}, {"week", Left}, {"name", Left}});
    for (const Calendar& calendar : project.calendars) {
        table.add({number(calendar.id), printable(calendar.name), calendar.baseId ? number(*calendar.baseId) : "",
                   calendar.resourceId ? number(*calendar.resourceId) : "",
                   calendar.hasOwnHours ? weekText(calendar.week) : (calendar.baseId ? "inherited" : "default hours")});
        for (const CalendarException& exception : calendar.exceptions)
            exceptions.add({number(calendar.id), dayText(exception.firstDay), dayText(exception.lastDay),
                            rangesText(exception.ranges), printable(exception.name)});
        for (const WorkWeek& week : calendar.workWeeks)
            workWeeks.add({number(calendar.id), dayText(week.firstDay), dayText(week.lastDay), weekText(week.week),
                           printable(week.name)});
    }
    Page page;
    page.heading("Calendars", project.calendars.size());
    page.table(table);
    page.table("Exceptions", exceptions);
    page.table("Work weeks", workWeeks);
    return page.take();
}

std::string complaintsPage(const ProjectFile& project) {
    Page page;
    page.heading("What does not fit", project.complaints.groups().size());
    for (const std::string& line : project.complaints.lines())
        page.line(printable(line));
    return page.take();
}

} // namespace

std::string report(const ProjectFile& project, Section section) {
    switch (section) {
    case Section::Summary:
        return summaryPage(project);
    case Section::Entries:
        return entriesPage(project);
    case Section::Properties:
        return propertiesPage(project);
    case Section::Tasks:
        return tasksPage(project);
    case Section::Resources:
        return resourcesPage(project);
    case Section::Assignments:
        return assignmentsPage(project);
    case Section::Links:
        return linksPage(project);
    case Section::Calendars:
        return calendarsPage(project);
    case Section::Complaints:
        return complaintsPage(project);
    }
    return {};
}

} // namespace brackwater::inspect
