#include "GanttChart.h"

#include "GanttStyle.h"
#include "Html.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {

// Offsets from the top of a line.
constexpr double kBarTop = 4, kBarHeight = 10, kMiddle = 9, kSummaryTop = 5, kBaselineTop = 16, kBaselineHeight = 3;
constexpr double kMilestone = 6; ///< half a diamond
constexpr double kLeastWidth = 2, kLeastBaseline = 5, kStub = 6;

double topOf(std::size_t position, std::size_t first) {
    return (static_cast<double>(position) - static_cast<double>(first)) * kRowHeight;
}

std::string rect(std::string_view kind, double x, double y, double width, double height, std::string_view more = {}) {
    return fmt::format("<rect class=\"{}\" x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\"{}/>", kind, px(x), px(y),
                       px(width), px(height), more);
}

std::string diamond(double x, double y) {
    return fmt::format("<path class=\"mile\" d=\"M{} {}l{} {} {} {} {} {}z\"/>", px(x), px(y - kMilestone),
                       px(kMilestone), px(kMilestone), px(-kMilestone), px(kMilestone), px(-kMilestone),
                       px(-kMilestone));
}

// A bar with points that hang down at both ends.
std::string bracket(double left, double right, double top) {
    const double point = std::min(5.0, (right - left) / 2);
    return fmt::format("<path class=\"sum\" d=\"M{} {}H{}v10l{} -5H{}l{} 5z\"/>", px(left), px(top), px(right),
                       px(-point), px(left + point), px(-point));
}

bool endsAtFinish(std::uint16_t type) { return type == 0 || type == 2; }
bool beginsAtFinish(std::uint16_t type) { return type == 0 || type == 1; }

} // namespace

void GanttChart::appendDefinitions(std::string& out, const std::vector<DaySpan>& freeDays) const {
    constexpr double least = 1.2; // narrower stripes would only be a haze
    out += "<g id=\"free\">";
    for (const DaySpan& span : freeDays) {
        const double width = (span.last - span.first + 1) * _scale.pixelsPerDay();
        if (width >= least)
            out += fmt::format("<path d=\"M{} 0h{}v9999h-{}z\"/>", px(_scale.dayX(span.first)), px(width), px(width));
    }
    out += "</g>\n<g id=\"grid\">";
    const std::vector<TimeScale::Cell> upper = _scale.upperCells(), lower = _scale.lowerCells();
    for (const TimeScale::Cell& cell : upper)
        if (cell.left > 0)
            out += fmt::format("<path d=\"M{} 0v9999\"/>", px(cell.left));
    if (_today && *_today >= _scale.days().first && *_today <= _scale.days().last)
        out += fmt::format("<path class=\"today\" d=\"M{} 0v9999\"/>", px(_scale.dayX(*_today)));
    out += fmt::format("</g>\n<g id=\"axis\" class=\"axis\"><path d=\"M0 20.5H{0}M0 39.5H{0}\"/>", px(_scale.width()));
    for (const TimeScale::Cell& cell : upper) {
        if (cell.left > 0)
            out += fmt::format("<path d=\"M{} 0v20\"/>", px(cell.left));
        if (!cell.label.empty())
            out += fmt::format("<text class=\"u\" x=\"{}\" y=\"15\">{}</text>", px(cell.left + 5), htmlOf(cell.label));
    }
    for (const TimeScale::Cell& cell : lower) {
        if (cell.left > 0)
            out += fmt::format("<path d=\"M{} 20v20\"/>", px(cell.left));
        if (!cell.label.empty())
            out += fmt::format("<text x=\"{}\" y=\"34\" text-anchor=\"middle\">{}</text>",
                               px(cell.left + cell.width / 2), htmlOf(cell.label));
    }
    out += "</g>\n";
}

void GanttChart::appendRow(std::string& out, std::size_t position, std::size_t first) const {
    const GanttRow& row = _rows[position];
    const double top = topOf(position, first);
    appendBaseline(out, *row.task, top);
    const std::optional<Date>& start = row.task->start ? row.task->start : row.task->finish;
    if (!start)
        return;
    const double left = _scale.x(*start);
    const double right = std::max(row.task->finish ? _scale.x(*row.task->finish) : left, left + kLeastWidth);
    if (row.isSummary)
        out += bracket(left, right, top + kSummaryTop);
    else if (row.task->milestone)
        out += diamond(left, top + kMiddle);
    else
        appendBar(out, *row.task, left, right, top);
    out += '\n';
}

void GanttChart::appendBar(std::string& out, const Task& task, double left, double right, double top) const {
    constexpr std::string_view round = " rx=\"2\"";
    out += rect("bar", left, top + kBarTop, right - left, kBarHeight, round);
    const double done = (right - left) * std::min<double>(task.percentComplete, 100) / 100;
    if (done > 0)
        out += rect("bd", left, top + kBarTop, done, kBarHeight, round);
}

void GanttChart::appendBaseline(std::string& out, const Task& task, double top) const {
    const auto baseline = task.baselines.find(0);
    if (baseline == task.baselines.end() || !baseline->second.start || !baseline->second.finish)
        return;
    const double left = _scale.x(*baseline->second.start), right = _scale.x(*baseline->second.finish);
    const double missing = std::max(kLeastBaseline - (right - left), 0.0); // around the middle
    out += rect("base", left - missing / 2, top + kBaselineTop, right - left + missing, kBaselineHeight);
}

std::optional<double> GanttChart::end(const GanttRow& row, bool atFinish) const {
    const Task& task = *row.task;
    const std::optional<Date>& date = atFinish || !task.start ? task.finish : task.start;
    if (!date)
        return std::nullopt;
    const bool isDiamond = task.milestone && !row.isSummary;
    return _scale.x(*date) + (isDiamond ? (atFinish ? kMilestone : -kMilestone) : 0);
}

// Down or up from one line to the other, and into the bar from its side; a link from a finish to a later start goes
// straight onto the bar.
void GanttChart::appendLink(std::string& out, const GanttLink& link, std::size_t first) const {
    const bool fromFinish = beginsAtFinish(link.type), toFinish = endsAtFinish(link.type);
    const auto from = end(_rows[link.from], fromFinish), to = end(_rows[link.to], toFinish);
    if (!from || !to || link.from == link.to)
        return;
    const double fromY = topOf(link.from, first) + kMiddle, toY = topOf(link.to, first) + kMiddle;
    const double direction = toY > fromY ? 1 : -1;
    std::string path = fmt::format("M{} {}", px(*from), px(fromY));
    const bool onDiamond = _rows[link.to].task->milestone && !_rows[link.to].isSummary;
    const double onto = onDiamond ? *to + kMilestone : *to + 3;
    if (fromFinish && !toFinish && onto >= *from + 2) {
        const double edge = onDiamond ? kMilestone + 1 : (_rows[link.to].isSummary ? 5 : 6);
        path += fmt::format("H{}V{}", px(onto), px(toY - direction * edge));
    } else {
        const double outside = toFinish ? *to + kStub + 3 : *to - kStub - 3;
        const double leaving = *from + (fromFinish ? kStub : -kStub);
        const double tip = toFinish ? *to + 1 : *to - 1;
        const bool sameSide = fromFinish == toFinish;
        if (sameSide) {
            const double turn = fromFinish ? std::max(leaving, outside) : std::min(leaving, outside);
            path += fmt::format("H{}V{}H{}", px(turn), px(toY), px(tip));
        } else {
            path += fmt::format("H{}V{}H{}V{}H{}", px(leaving), px(fromY + direction * (kRowHeight / 2.0)), px(outside),
                                px(toY), px(tip));
        }
    }
    out += fmt::format("<path class=\"link\" marker-end=\"url(#tip)\" d=\"{}\"/>\n", path);
}

} // namespace brackwater::inspect
