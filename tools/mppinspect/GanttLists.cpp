#include "GanttLists.h"

#include "Html.h"
#include "WeekText.h"

#include <fmt/format.h>

#include <map>
#include <tuple>
#include <unordered_map>

namespace brackwater::inspect {

namespace {

class Lists {
public:
    Lists(TextOutput& out, const ProjectFile& project, const Calendar* calendar)
        : _output(out), _project(project), _calendar(calendar) {}

    void append() {
        appendNotes();
        appendCalendars();
    }

private:
    [[nodiscard]] std::string& out() { return _output.text(); }

    void begin(std::string_view heading, std::initializer_list<std::string_view> headings) {
        out() += fmt::format("<h2>{}</h2>\n<table class=\"list\"><thead><tr>", heading);
        for (const std::string_view column : headings)
            out() += fmt::format("<th>{}</th>", column);
        out() += "</tr></thead><tbody>\n";
    }

    void end() { out() += "</tbody></table>\n"; }

    void appendNotes() {
        bool isFirst = true;
        for (const Task& task : _project.tasks) {
            if (task.notes.empty())
                continue;
            if (isFirst)
                begin("Notes", {"ID", "Task", "Note"});
            isFirst = false;
            out() += fmt::format("<tr><td>{}</td><td><bdi>{}</bdi></td><td class=\"note\" dir=\"auto\">", task.id,
                                 htmlOf(task.title));
            appendHtmlLines(out(), task.notes);
            out() += "</td></tr>\n";
        }
        if (!isFirst)
            end();
    }

    void appendCalendars() {
        std::unordered_map<std::uint32_t, const std::string*> resources;
        for (const Resource& resource : _project.resources)
            resources.try_emplace(resource.uniqueId, &resource.name);
        std::string calendars;
        Exceptions exceptions;
        for (const Calendar& calendar : _project.calendars) {
            const auto resource = calendar.resourceId ? resources.find(*calendar.resourceId) : resources.end();
            const std::string owner = resource == resources.end() ? std::string() : *resource->second;
            const std::string& name = calendar.name.empty() ? owner : calendar.name;
            if (name.empty())
                continue;
            if (weekText(calendar) != "inherited")
                calendars += rowOf(calendar, name, owner);
            for (const CalendarException& exception : calendar.exceptions)
                addException(exceptions, exception, timesOf(exception), name);
            for (const WorkWeek& week : calendar.workWeeks)
                addException(exceptions, week, weekText(week.week), name);
        }
        appendTable("Calendars", {"Calendar", "Used by", "Working times"}, calendars);
        appendTable("Exceptions", {"First day", "Last day", "Working times", "Name", "Calendars"}, rowsOf(exceptions));
    }

    [[nodiscard]] std::string rowOf(const Calendar& calendar, const std::string& name, const std::string& owner) const {
        return fmt::format("<tr><td><bdi>{}</bdi></td><td><bdi>{}</bdi></td><td>{}</td></tr>\n", htmlOf(name),
                           &calendar == _calendar ? "The project" : htmlOf(owner), weekText(calendar));
    }

    static std::string timesOf(const CalendarException& exception) {
        const std::string times = rangesText(exception.ranges);
        return exception.recurrence ? fmt::format("{}, {}", times, textOf(*exception.recurrence)) : times;
    }

    /// Days with other times, and all the calendars that have them, in the order of the days.
    using Exceptions = std::map<std::tuple<std::uint16_t, std::uint16_t, std::string, std::string>, std::string>;

    template <typename Span>
    static void addException(Exceptions& exceptions, const Span& span, std::string times, const std::string& calendar) {
        std::string& calendars = exceptions[{span.firstDay, span.lastDay, std::move(times), span.name}];
        calendars += fmt::format("{}<bdi>{}</bdi>", calendars.empty() ? "" : ", ", htmlOf(calendar));
    }

    static std::string rowsOf(const Exceptions& exceptions) {
        std::string rows;
        for (const auto& [key, calendars] : exceptions) {
            const auto& [firstDay, lastDay, times, name] = key;
            rows += fmt::format("<tr><td>{}</td><td>{}</td><td>{}</td><td><bdi>{}</bdi></td><td>{}</td></tr>\n",
                                dayText(firstDay), dayText(lastDay), times, htmlOf(name), calendars);
        }
        return rows;
    }

    void appendTable(std::string_view heading, std::initializer_list<std::string_view> headings,
                     const std::string& rows) {
        if (rows.empty())
            return;
        begin(heading, headings);
        out() += rows;
        end();
    }

    TextOutput& _output;
    const ProjectFile& _project;
    const Calendar* _calendar;
};

} // namespace

void appendLists(TextOutput& out, const ProjectFile& project, const Calendar* calendar) {
    Lists(out, project, calendar).append();
}

} // namespace brackwater::inspect
