#include "TextReport.h"

#include "ReportTables.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace brackwater::inspect {

namespace {

/// Appends headings, tables and the notes that go with them.
class Page {
public:
    explicit Page(std::size_t width) : _width(width) {}

    void heading(std::string_view text, std::size_t count) { _text += fmt::format("{} ({})\n", text, count); }
    void line(std::string_view text) { _text += fmt::format("{}\n", text); }
    void table(const TextTable& table) {
        if (!table.empty())
            table.appendTo(_text, _width);
    }
    // A further table of a section, told only where it has rows.
    void table(std::string_view title, const TextTable& table) {
        if (table.empty())
            return;
        _text += fmt::format("\n{}\n", title);
        table.appendTo(_text, _width);
    }
    void tables(std::string_view records, const RecordTables& tables) {
        table(fmt::format("Text fields of {}", records), tables.textFields);
        table(fmt::format("Baselines of {}", records), tables.baselines);
        table(fmt::format("Notes of {}", records), tables.notes);
    }
    [[nodiscard]] std::string take() { return std::move(_text); }

private:
    std::size_t _width;
    std::string _text;
};

void addSummary(Page& page, const ProjectFile& project) {
    page.line(fmt::format("Document: {}", printable(fmt::format("{}", fmt::join(project.compObj, ", ")))));
    page.line(fmt::format("Folder: {}", project.folder));
    page.table(mainTable(project, Section::Summary));
}

void addProperties(Page& page, const ProjectFile& project) {
    page.heading("Properties", project.properties.size());
    page.table(mainTable(project, Section::Properties));
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
}

std::string fieldNamesLine(const std::map<std::size_t, std::string>& names) {
    std::vector<std::string> parts;
    parts.reserve(names.size());
    for (const auto& [position, name] : names)
        parts.push_back(fmt::format("Text{} = {}", position, printable(name)));
    return fmt::format("Names of fields: {}", fmt::join(parts, ", "));
}

void addTasks(Page& page, const ProjectFile& project) {
    page.heading("Tasks", project.tasks.size());
    page.table(mainTable(project, Section::Tasks));
    if (project.blankTaskRows != 0)
        page.line(fmt::format("Blank lines: {}", project.blankTaskRows));
    if (!project.taskTextNames.empty())
        page.line(fieldNamesLine(project.taskTextNames));
    page.tables("tasks", taskTables(project));
}

void addResources(Page& page, const ProjectFile& project) {
    page.heading("Resources", project.resources.size());
    page.table(mainTable(project, Section::Resources));
    if (!project.resourceTextNames.empty())
        page.line(fieldNamesLine(project.resourceTextNames));
    page.tables("resources", resourceTables(project));
}

void addCalendars(Page& page, const ProjectFile& project) {
    page.heading("Calendars", project.calendars.size());
    page.table(mainTable(project, Section::Calendars));
    page.table("Exceptions", calendarExceptions(project));
    page.table("Work weeks", calendarWorkWeeks(project));
}

void addComplaints(Page& page, const ProjectFile& project) {
    page.heading("What does not fit", project.complaints.groups().size());
    for (const std::string& line : project.complaints.lines())
        page.line(printable(line));
}

} // namespace

std::string report(const ProjectFile& project, Section section, std::size_t width) {
    Page page(width);
    switch (section) {
    case Section::Summary:
        addSummary(page, project);
        break;
    case Section::Entries:
        page.heading("Entries", project.entries.size());
        page.table(mainTable(project, section));
        break;
    case Section::Properties:
        addProperties(page, project);
        break;
    case Section::Tasks:
        addTasks(page, project);
        break;
    case Section::Resources:
        addResources(page, project);
        break;
    case Section::Assignments:
        page.heading("Assignments", project.assignments.size());
        page.table(mainTable(project, section));
        page.tables("assignments", assignmentTables(project));
        break;
    case Section::Links:
        page.heading("Links", project.links.size());
        page.table(mainTable(project, section));
        break;
    case Section::Calendars:
        addCalendars(page, project);
        break;
    case Section::Complaints:
        addComplaints(page, project);
        break;
    }
    return page.take();
}

std::string csv(const ProjectFile& project, Section section) {
    std::string text;
    mainTable(project, section).appendCsv(text);
    return text;
}

} // namespace brackwater::inspect
