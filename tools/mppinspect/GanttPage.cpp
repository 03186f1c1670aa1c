#include "GanttPage.h"

#include "CriticalPath.h"
#include "GanttChart.h"
#include "GanttLists.h"
#include "GanttStyle.h"
#include "Html.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>

namespace brackwater::inspect {

namespace {

constexpr std::uint32_t kTitle = 0x02400008;
constexpr std::size_t kMostNested = 24; ///< groups in groups that can be folded: browsers bound the depth of elements
constexpr int kMostIndents = 12;
constexpr std::size_t kNoteOnHover = 600, kNamesOnHover = 300; ///< bytes; whole notes stand below the chart
constexpr std::size_t kNeighboursOnHover = 8;

/// The beginning of a long text, with dots behind it.
std::string beginningOf(std::string_view text, std::size_t bytes) {
    std::size_t size = 0;
    while (size < text.size() && size < bytes)
        size += std::max<std::size_t>(characterSize(text.substr(size)), 1);
    return std::string(text.substr(0, size)) + (size < text.size() ? "…" : "");
}

std::vector<GanttRow> rowsOf(const ProjectFile& project) {
    std::unordered_set<std::uint32_t> parents;
    for (const Task& task : project.tasks)
        if (task.parentId)
            parents.insert(*task.parentId);
    const std::unordered_set<std::uint32_t> critical = criticalTasks(project);
    std::vector<GanttRow> rows;
    for (const Task& task : project.tasks)
        if (task.uniqueId != 0) // the project's own row is the page's title
            rows.push_back({&task, parents.contains(task.uniqueId), critical.contains(task.uniqueId)});
    std::ranges::stable_sort(rows, {}, [](const GanttRow& row) { return row.task->id; });
    return rows;
}

/// Links whose ends are both lines of the chart.
std::vector<GanttLink> linksOf(const ProjectFile& project, std::span<const GanttRow> rows) {
    std::unordered_map<std::uint32_t, std::size_t> positions;
    for (std::size_t i = 0; i < rows.size(); ++i)
        positions.try_emplace(rows[i].task->uniqueId, i);
    std::vector<GanttLink> links;
    for (const Link& link : project.links) {
        const auto from = positions.find(link.predecessor), to = positions.find(link.successor);
        if (from != positions.end() && to != positions.end())
            links.push_back({from->second, to->second, link.type});
    }
    return links;
}

/// Texts of a line that come from elsewhere.
struct Surroundings {
    std::string resources, before, after; ///< names; IDs of predecessors and successors
    std::size_t beforeCount = 0, afterCount = 0;
};

std::vector<Surroundings> surroundingsOf(const ProjectFile& project, std::span<const GanttRow> rows,
                                         const std::vector<GanttLink>& links) {
    std::vector<Surroundings> all(rows.size());
    const auto addId = [](std::string& ids, std::size_t& count, std::uint32_t id) {
        if (++count <= kNeighboursOnHover)
            ids += fmt::format("{}{}", ids.empty() ? "" : ", ", id);
        else if (count == kNeighboursOnHover + 1)
            ids += ", …";
    };
    for (const GanttLink& link : links) {
        addId(all[link.to].before, all[link.to].beforeCount, rows[link.from].task->id);
        addId(all[link.from].after, all[link.from].afterCount, rows[link.to].task->id);
    }
    std::unordered_map<std::uint32_t, std::size_t> positions;
    for (std::size_t i = 0; i < rows.size(); ++i)
        positions.try_emplace(rows[i].task->uniqueId, i);
    std::unordered_map<std::uint32_t, const Resource*> resources;
    for (const Resource& resource : project.resources)
        resources.try_emplace(resource.uniqueId, &resource);
    for (const Assignment& assignment : project.assignments) {
        const auto resource = assignment.resourceId ? resources.find(*assignment.resourceId) : resources.end();
        const auto position = positions.find(assignment.taskId);
        if (resource == resources.end() || resource->second->name.empty() || position == positions.end())
            continue;
        std::string& names = all[position->second].resources;
        if (names.size() < kNamesOnHover)
            names += (names.empty() ? "" : "; ") + beginningOf(resource->second->name, kNamesOnHover);
        else if (!names.ends_with("…"))
            names += "; …";
    }
    return all;
}

class GanttPage {
public:
    GanttPage(const ProjectFile& project, const Sink& sink, const GanttOptions& options)
        : _project(project), _out(sink), _today(options.today), _rows(rowsOf(project)), _links(linksOf(project, _rows)),
          _surroundings(surroundingsOf(project, _rows, _links)), _scale(project.tasks, options),
          _drawnLinks(_scale, _rows, _links), _chart(_scale, _rows, _drawnLinks), _calendar(projectCalendar(project)),
          _freeDays(freeDays(_calendar, _scale.days())) {}

    void write() {
        writeHead();
        if (_rows.empty()) {
            out() += "<p class=\"none\">The file holds no tasks.</p>\n";
        } else {
            writeLegend();
            writeChart();
        }
        appendLists(_out, _project, _calendar);
        out() += "<footer>Drawn by mppinspect. Times are the wall clock of the plan.</footer>\n</body>\n</html>\n";
        _out.flush();
    }

private:
    [[nodiscard]] std::string& out() { return _out.text(); }

    [[nodiscard]] std::string title() const {
        const auto property = std::ranges::find(_project.properties, kTitle, &ProjectProperty::type);
        if (property != _project.properties.end() && !property->value.empty())
            return property->value;
        const auto own = std::ranges::find(_project.tasks, 0U, &Task::uniqueId);
        return own != _project.tasks.end() && !own->title.empty() ? own->title : "Project without a title";
    }

    [[nodiscard]] std::string facts() const {
        std::optional<Date> start, finish;
        for (const GanttRow& row : _rows) {
            if (row.task->start)
                start = std::min(start.value_or(*row.task->start), *row.task->start);
            if (row.task->finish)
                finish = std::max(finish.value_or(*row.task->finish), *row.task->finish);
        }
        std::string text;
        if (start && finish)
            text = fmt::format("{} to {} · ", dayText(start->days), dayText(finish->days));
        const auto milestones = std::ranges::count_if(_rows, &GanttRow::isDiamond);
        const auto people =
            std::ranges::count_if(_project.resources, [](const Resource& resource) { return resource.uniqueId != 0; });
        const auto counted = [](auto count, std::string_view what) {
            return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
        };
        return text + fmt::format("{} · {} · {} · {}", counted(_rows.size(), "task"), counted(milestones, "milestone"),
                                  counted(people, "resource"), counted(_project.links.size(), "link"));
    }

    // Whatever a plan says, browsers load and run nothing.
    void writeHead() {
        const std::string heading = htmlOf(title());
        const std::uint32_t lastId = _rows.empty() ? 0 : _rows.back().task->id;
        const std::size_t digits = std::max<std::size_t>(fmt::format_int(lastId).size(), 3);
        out() += fmt::format("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                             "<meta http-equiv=\"Content-Security-Policy\" "
                             "content=\"default-src 'none'; style-src 'unsafe-inline'; "
                             "base-uri 'none'; form-action 'none'\">\n"
                             "<meta name=\"viewport\" content=\"width=device-width\">\n<title>{}</title>\n<style>\n"
                             ":root{{--ids:{}px;--least:{}px;--paper:",
                             heading, 13 + 7 * digits, share(_scale.width()));
        _chart.appendPaperBackground(out(), _freeDays, _today);
        out() += fmt::format("}}{}</style>\n</head>\n<body>\n", kGanttStyle);
        out() += fmt::format("<h1 dir=\"auto\">{}</h1>\n<p class=\"facts\">{}</p>\n", heading, facts());
    }

    void writeLegend() {
        out() += "<svg class=\"defs\" aria-hidden=\"true\"><defs>";
        GanttChart::appendDefinitions(out());
        out() += "</defs></svg>\n<ul class=\"legend\">\n";
        writeLegendItem("<rect class=\"b\" y=\"4\" width=\"28\" height=\"10\"/>"
                        "<rect class=\"p\" y=\"4\" width=\"13\" height=\"10\"/>",
                        "Task, done part darker");
        if (std::ranges::any_of(_rows, &GanttRow::isCritical))
            writeLegendItem("<rect class=\"b x\" y=\"4\" width=\"28\" height=\"10\"/>"
                            "<rect class=\"p x\" y=\"4\" width=\"13\" height=\"10\"/>",
                            "Critical task");
        if (std::ranges::any_of(_rows, &GanttRow::isSummary))
            writeLegendItem("<rect y=\"5\" width=\"28\" height=\"5\"/><use href=\"#e\"/><use href=\"#f\" x=\"28\"/>",
                            "Group");
        if (std::ranges::any_of(_rows, &GanttRow::isDiamond))
            writeLegendItem("<use href=\"#m\" x=\"14\"/>", "Milestone");
        if (std::ranges::any_of(_rows, [](const GanttRow& row) { return row.task->baselines.contains(0); }))
            writeLegendItem("<rect class=\"a\" y=\"8\" width=\"28\" height=\"3\"/>", "Baseline");
        if (std::ranges::any_of(_rows, [](const GanttRow& row) { return row.task->deadline.has_value(); }))
            writeLegendItem("<use href=\"#v\" class=\"dead\" x=\"14\" y=\"5\"/>", "Deadline");
        writeLinksOfLegend();
        if (_chart.hasStripes(_freeDays))
            writeLegendItem("<rect class=\"free\" width=\"28\" height=\"18\"/>", "Non-working days");
        if (_chart.isOnAxis(_today))
            writeLegendItem("<rect class=\"now\" x=\"13\" width=\"2\" height=\"20\"/>", "Today, " + dayText(*_today));
        out() += "</ul>\n";
    }

    void writeLinksOfLegend() {
        if (!_drawnLinks.isEmpty())
            writeLegendItem("<path d=\"M2 9H24\" stroke=\"#6f7c8a\"/><use href=\"#r\" x=\"27\" y=\"9\"/>", "Link");
        if (_drawnLinks.isThinned())
            writeLegendItem("<path d=\"M0 9H6M16 9H24\" stroke=\"#6f7c8a\"/><use href=\"#r\" x=\"27\" y=\"9\"/>",
                            "Long link, only its ends drawn");
    }

    void writeLegendItem(std::string_view drawing, std::string_view label) {
        out() += fmt::format("<li><svg aria-hidden=\"true\">{}</svg>{}</li>\n", drawing, label);
    }

    // The table has one cell, which holds all lines: its head is what browsers repeat on every page of paper.
    void writeChart() {
        out() += "<table class=\"chart\"><thead><tr><th>\n";
        writeChartHead();
        out() += "</th></tr></thead><tbody><tr><td>\n";
        _chart.appendBackground(out(), _freeDays, _today);
        out() += "<div class=\"rows\">\n";
        writeRows();
        out() += "</div></td></tr></tbody></table>\n";
    }

    void writeChartHead() {
        out() += fmt::format("<div class=\"head row\"><span class=\"id\">ID</span><span class=\"name\">"
                             "<span class=\"plan\">{}</span>Task</span><span class=\"date\">Start</span>"
                             "<span class=\"date\">Finish</span><span class=\"num\">Duration</span>"
                             "<span class=\"num done\">Done</span>",
                             htmlOf(title()));
        _chart.appendAxis(out(), "screen", _scale.width(), _today);
        _chart.appendAxis(out(), "paper", kPaperChart, _today);
        out() += "</div>\n";
    }

    // A line whose next one stands deeper begins a group, whatever the parents say: so the groups always nest.
    void writeRows() {
        std::vector<int> open;
        for (std::size_t i = 0; i < _rows.size(); ++i) {
            const int depth = _rows[i].task->depth;
            for (; !open.empty() && open.back() >= depth; open.pop_back())
                out() += "</div></details>\n";
            const bool begins = i + 1 < _rows.size() && _rows[i + 1].task->depth > depth && open.size() < kMostNested;
            out() += begins ? "<details open><summary" : "<div";
            writeRow(i);
            out() += begins ? "</summary>" : "</div>\n";
            if (!begins)
                continue;
            out() += fmt::format("<div style=\"--depth:{}\">\n", std::clamp(depth, 0, kMostIndents));
            open.push_back(depth);
        }
        for (; !open.empty(); open.pop_back())
            out() += "</div></details>\n";
    }

    void writeRow(std::size_t position) {
        const GanttRow& row = _rows[position];
        const Task& task = *row.task;
        out() += fmt::format(" class=\"row{}\" title=\"", task.notes.empty() ? "" : " noted");
        writeHover(position);
        out() += fmt::format("\"><span class=\"id\">{}</span><span class=\"name\"><bdi>{}</bdi></span>"
                             "<span class=\"date\">{}</span><span class=\"date\">{}</span><span class=\"num\">{}</span>"
                             "<span class=\"num done\">{}%</span>",
                             task.id, htmlOf(task.title), task.start ? dayText(task.start->days) : "",
                             task.finish ? dayText(task.finish->days) : "",
                             task.milestone ? std::string() : htmlOf(textOf(task.duration, _project.units)),
                             task.percentComplete);
        _chart.appendRow(out(), position, _surroundings[position].resources);
    }

    void writeHover(std::size_t position) {
        const GanttRow& row = _rows[position];
        const Task& task = *row.task;
        const Surroundings& surroundings = _surroundings[position];
        std::string text = task.title;
        const auto addLine = [&text](std::string_view line) { text.append("\n").append(line); };
        if (task.start || task.finish)
            addLine(fmt::format("{} – {} · {} · {}% done", textOf(task.start), textOf(task.finish),
                                textOf(task.duration, _project.units), task.percentComplete));
        if (!surroundings.resources.empty())
            addLine(surroundings.resources);
        if (row.isCritical)
            addLine("Critical");
        if (task.deadline)
            addLine("Deadline " + textOf(task.deadline));
        if (!surroundings.before.empty())
            addLine("After " + surroundings.before);
        if (!surroundings.after.empty())
            addLine("Before " + surroundings.after);
        if (!task.notes.empty())
            addLine("\n" + beginningOf(task.notes, kNoteOnHover));
        appendHtmlLines(out(), text);
    }

    const ProjectFile& _project;
    TextOutput _out;
    std::optional<std::uint16_t> _today;
    std::vector<GanttRow> _rows;
    std::vector<GanttLink> _links;
    std::vector<Surroundings> _surroundings; ///< by the position of the line
    TimeScale _scale;
    GanttLinks _drawnLinks;
    GanttChart _chart;
    const Calendar* _calendar; ///< of the project; may be null
    std::vector<DaySpan> _freeDays;
};

} // namespace

void writeGanttPage(const ProjectFile& project, const Sink& sink, const GanttOptions& options) {
    GanttPage(project, sink, options).write();
}

} // namespace brackwater::inspect
