#include "GanttPage.h"

#include "GanttChart.h"
#include "GanttStyle.h"
#include "Html.h"
#include "WeekText.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

namespace brackwater::inspect {

namespace {

constexpr std::uint32_t kTitle = 0x02400008;
constexpr int kMostIndents = 12, kIndent = 13;

/// The landscape page that a chart of this width is made to fit when it is printed.
class Paper {
public:
    explicit Paper(double chartWidth)
        : _isLarge(chartWidth > kWidestOnSmall), _zoom(std::min(1.0, width() / (kTableWidth + chartWidth + kBorders))) {
    }

    [[nodiscard]] const char* name() const { return _isLarge ? "A3" : "A4"; }
    [[nodiscard]] double zoom() const { return _zoom; }
    /// How many of the rows that are left go on the next page. The last page gets no less than a handful.
    [[nodiscard]] std::size_t rowsOnPage(bool isFirst, std::size_t left) const {
        constexpr double titleAndLegend = 100, rounding = 0.97; // browsers round zoomed lengths to whole dots
        constexpr std::size_t handful = 6;
        const double height = rounding * this->height() / _zoom - kHeadHeight - kGap - (isFirst ? titleAndLegend : 0);
        const auto fitting = static_cast<std::size_t>(height / kRowHeight);
        return left > fitting && left < fitting + handful ? left - handful : std::min(left, fitting);
    }

private:
    static constexpr double kWidestOnSmall = 1000, kBorders = 4, kGap = 16;
    /// Within margins of a centimetre, in pixels.
    [[nodiscard]] double width() const { return _isLarge ? 1511 : 1047; }
    [[nodiscard]] double height() const { return _isLarge ? 1046 : 718; }

    bool _isLarge;
    double _zoom;
};

class GanttPage {
public:
    GanttPage(const ProjectFile& project, const Sink& sink, const GanttOptions& options)
        : _project(project), _out(sink), _scale(project.tasks, options), _paper(_scale.width()), _rows(rowsOf(project)),
          _chart(_scale, _rows, options.today), _calendar(projectCalendar(project)) {}

    void write() {
        readNames();
        readLinks();
        writeHead();
        writeDefinitions();
        writeChart();
        writeCalendars();
        out() += "<footer>Drawn by mppinspect. Times are the wall clock of the plan.</footer>\n</body>\n</html>\n";
        _out.flush();
    }

private:
    [[nodiscard]] std::string& out() { return _out.text(); }

    static std::vector<GanttRow> rowsOf(const ProjectFile& project) {
        std::vector<GanttRow> rows;
        std::unordered_map<std::uint32_t, bool> isParent;
        for (const Task& task : project.tasks)
            if (task.parentId)
                isParent[*task.parentId] = true;
        for (const Task& task : project.tasks)
            if (task.uniqueId != 0) // the project's own row is the page's title
                rows.push_back({&task, isParent.contains(task.uniqueId)});
        std::ranges::stable_sort(rows, {}, [](const GanttRow& row) { return row.task->id; });
        return rows;
    }

    void readNames() {
        std::unordered_map<std::uint32_t, const Resource*> resources;
        for (const Resource& resource : _project.resources)
            resources.try_emplace(resource.uniqueId, &resource);
        for (const Assignment& assignment : _project.assignments) {
            const auto resource = assignment.resourceId ? resources.find(*assignment.resourceId) : resources.end();
            if (resource == resources.end() || resource->second->name.empty())
                continue;
            std::string& names = _resourceNames[assignment.taskId];
            names += (names.empty() ? "" : "; ") + resource->second->name;
        }
    }

    // By the part that each begins in and, where it is another one, by the part that it ends in.
    void readLinks() {
        std::unordered_map<std::uint32_t, std::size_t> positions;
        for (std::size_t i = 0; i < _rows.size(); ++i)
            positions.try_emplace(_rows[i].task->uniqueId, i);
        _leaving.resize(_rows.size());
        _arriving.resize(_rows.size());
        for (const Link& link : _project.links) {
            const auto from = positions.find(link.predecessor), to = positions.find(link.successor);
            if (from == positions.end() || to == positions.end())
                continue;
            const GanttLink drawn{from->second, to->second, link.type};
            _leaving[drawn.from].push_back(drawn);
            _arriving[drawn.to].push_back(drawn);
        }
    }

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
        const auto milestones = std::ranges::count_if(_rows, [](const GanttRow& row) { return row.task->milestone; });
        const auto people =
            std::ranges::count_if(_project.resources, [](const Resource& resource) { return resource.uniqueId != 0; });
        const auto counted = [](auto count, std::string_view what) {
            return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
        };
        return text + fmt::format("{} · {} · {} · {}", counted(_rows.size(), "task"), counted(milestones, "milestone"),
                                  counted(people, "resource"), counted(_project.links.size(), "link"));
    }

    void writeHead() {
        const std::string heading = htmlOf(title());
        out() +=
            fmt::format("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                        "<meta name=\"viewport\" content=\"width=device-width\">\n<title>{}</title>\n<style>\n"
                        "@page{{size:{} landscape;margin:10mm}}\n:root{{--zoom:{:.3f}}}{}</style>\n</head>\n<body>\n",
                        heading, _paper.name(), _paper.zoom(), kGanttStyle);
        out() += fmt::format("<h1 dir=\"auto\">{}</h1>\n<p class=\"facts\">{}</p>\n", heading, facts());
        writeLegend();
    }

    void writeLegend() {
        const auto item = [](std::string_view drawing, std::string_view label) {
            return fmt::format("<li><svg width=\"28\" height=\"18\">{}</svg>{}</li>\n", drawing, label);
        };
        out() += "<ul class=\"legend\">\n";
        out() += item("<rect class=\"bar\" y=\"4\" width=\"28\" height=\"10\" rx=\"2\"/>"
                      "<rect class=\"bd\" y=\"4\" width=\"13\" height=\"10\" rx=\"2\"/>",
                      "Task, done part darker");
        out() += item("<path class=\"sum\" d=\"M0 5H28v10l-5 -5H5l-5 5z\"/>", "Summary");
        out() += item("<path class=\"mile\" d=\"M14 3l6 6 -6 6 -6 -6z\"/>", "Milestone");
        out() += item("<rect class=\"base\" y=\"8\" width=\"28\" height=\"3\"/>", "Baseline");
        out() += item("<path class=\"link\" marker-end=\"url(#tip)\" d=\"M2 9H24\"/>", "Link");
        out() += item("<rect class=\"free\" width=\"28\" height=\"18\"/>", "Non-working days");
        out() += "</ul>\n";
    }

    void writeDefinitions() {
        out() += "<svg class=\"defs\" aria-hidden=\"true\"><defs>\n<marker id=\"tip\" viewBox=\"0 0 6 6\" refX=\"5\" "
                 "refY=\"3\" markerWidth=\"6\" markerHeight=\"6\" markerUnits=\"userSpaceOnUse\" orient=\"auto\">"
                 "<path d=\"M0 0L6 3 0 6z\" fill=\"#6b7785\"/></marker>\n";
        _chart.appendDefinitions(out(), freeDays(_calendar, _scale.days()));
        out() += "</defs></svg>\n";
    }

    // In parts that fit on a page each. On a screen they follow one another without a seam.
    void writeChart() {
        out() += "<div class=\"chart\">\n";
        writeChartHead();
        for (std::size_t first = 0, size = 0; first < _rows.size(); first += size) {
            size = _paper.rowsOnPage(first == 0, _rows.size() - first);
            writePart(first, size);
        }
        out() += "</div>\n";
        if (_rows.empty())
            out() += "<p class=\"none\">The file holds no tasks.</p>\n";
    }

    static std::string columns() {
        return "<colgroup><col style=\"width:44px\"><col style=\"width:250px\"><col style=\"width:86px\">"
               "<col style=\"width:86px\"><col style=\"width:74px\"><col style=\"width:54px\"><col></colgroup>";
    }

    void writeChartHead() {
        out() += fmt::format("<div class=\"part head\"><table class=\"tasks\">{}<thead><tr><th class=\"n\">ID</th>"
                             "<th>Task</th><th>Start</th><th>Finish</th><th class=\"n\">Duration</th>"
                             "<th class=\"n\">Done</th><th>Resources</th></tr></thead></table>"
                             "<svg class=\"clip\" width=\"{}\" height=\"{}\"><use href=\"#axis\"/></svg></div>\n",
                             columns(), px(_scale.width()), kHeadHeight);
    }

    void writePart(std::size_t first, std::size_t count) {
        out() += "<section class=\"sheet\">\n";
        writeChartHead();
        out() += fmt::format("<div class=\"part\"><table class=\"tasks\">{}<tbody>\n", columns());
        for (std::size_t position = first; position < first + count; ++position)
            writeTableRow(_rows[position]);
        const std::string width = px(_scale.width());
        const std::size_t height = count * kRowHeight;
        out() += fmt::format("</tbody></table>\n<div class=\"draw\"><svg class=\"clip\" width=\"{0}\" height=\"{1}\">"
                             "<use class=\"free\" href=\"#free\"/><use class=\"grid\" href=\"#grid\"/>",
                             width, height);
        for (std::size_t line = 1; line <= count; ++line)
            out() += fmt::format("<path class=\"rows\" d=\"M0 {}.5H{}\"/>", line * kRowHeight - 1, width);
        out() += fmt::format("</svg>\n<svg class=\"front\" width=\"{}\" height=\"{}\">\n", width, height);
        for (std::size_t position = first; position < first + count; ++position)
            _chart.appendRow(out(), position, first);
        writeLinks(first, count);
        out() += "</svg></div></div>\n</section>\n";
    }

    // A link to another part is drawn whole where it begins, and once more, for paper, where it ends.
    void writeLinks(std::size_t first, std::size_t count) {
        const auto isHere = [&](std::size_t position) { return position >= first && position < first + count; };
        for (std::size_t position = first; position < first + count; ++position)
            for (const GanttLink& link : _leaving[position])
                _chart.appendLink(out(), link, first);
        out() += "<g class=\"late\">";
        for (std::size_t position = first; position < first + count; ++position)
            for (const GanttLink& link : _arriving[position])
                if (!isHere(link.from))
                    _chart.appendLink(out(), link, first);
        out() += "</g>\n";
    }

    void writeTableRow(const GanttRow& row) {
        const Task& task = *row.task;
        const int indent = std::clamp(task.depth - 1, 0, kMostIndents) * kIndent + 7;
        const auto names = _resourceNames.find(task.uniqueId);
        const std::string title = htmlOf(task.title);
        const std::string resources = names == _resourceNames.end() ? std::string() : htmlOf(names->second);
        out() += fmt::format("<tr{}><td class=\"n\">{}</td><td class=\"t\" style=\"padding-left:{}px\" title=\"{}\">"
                             "<bdi>{}</bdi></td><td class=\"d\">{}</td><td class=\"d\">{}</td><td class=\"n\">{}</td>"
                             "<td class=\"n\">{}%</td><td class=\"r\" title=\"{}\"><bdi>{}</bdi></td></tr>\n",
                             row.isSummary ? " class=\"s\"" : "", task.id, indent, title, title,
                             task.start ? dayText(task.start->days) : "", task.finish ? dayText(task.finish->days) : "",
                             task.milestone ? std::string() : htmlOf(textOf(task.duration, _project.units)),
                             task.percentComplete, resources, resources);
    }

    void writeCalendars() {
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
            if (!calendar.baseId || weekText(calendar.week) != "inherited")
                appendCalendar(calendars, calendar, name, owner);
            for (const CalendarException& exception : calendar.exceptions)
                addException(exceptions, exception, rangesText(exception.ranges), name);
            for (const WorkWeek& week : calendar.workWeeks)
                addException(exceptions, week, weekText(week.week), name);
        }
        writeList("Calendars", {"Calendar", "Used by", "Working times"}, calendars);
        writeList("Exceptions", {"First day", "Last day", "Working times", "Name", "Calendars"}, rowsOf(exceptions));
    }

    void appendCalendar(std::string& rows, const Calendar& calendar, const std::string& name,
                        const std::string& owner) const {
        rows += fmt::format("<tr><td><bdi>{}</bdi></td><td><bdi>{}</bdi></td><td>{}</td></tr>\n", htmlOf(name),
                            &calendar == _calendar ? "The project" : htmlOf(owner),
                            calendar.hasOwnHours ? weekText(calendar.week) : "default hours");
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

    void writeList(std::string_view heading, std::initializer_list<std::string_view> headings,
                   const std::string& rows) {
        if (rows.empty())
            return;
        out() += fmt::format("<h2>{}</h2>\n<table class=\"list\"><thead><tr>", heading);
        for (const std::string_view column : headings)
            out() += fmt::format("<th>{}</th>", column);
        out() += fmt::format("</tr></thead><tbody>\n{}</tbody></table>\n", rows);
    }

    const ProjectFile& _project;
    TextOutput _out;
    TimeScale _scale;
    Paper _paper;
    std::vector<GanttRow> _rows;
    GanttChart _chart;
    const Calendar* _calendar;                                     ///< of the project; may be null
    std::unordered_map<std::uint32_t, std::string> _resourceNames; ///< of all assigned to a task, by its unique id
    std::vector<std::vector<GanttLink>> _leaving, _arriving;       ///< by the position of the line
};

} // namespace

void writeGanttPage(const ProjectFile& project, const Sink& sink, const GanttOptions& options) {
    GanttPage(project, sink, options).write();
}

} // namespace brackwater::inspect
