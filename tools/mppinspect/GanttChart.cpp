#include "GanttChart.h"

#include "GanttStyle.h"
#include "Html.h"
#include "TextOutput.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace brackwater::inspect {

namespace {

constexpr double kLeastStripe = 3;     ///< pixels: narrower ones would only be a haze
constexpr double kLeastBar = 2.5;      ///< pixels
constexpr int kLeastBaseline = 5;      ///< pixels
constexpr int kTurn = 24;              ///< pixels beside a bar in which a link turns
constexpr double kLabelRoom = 22;      ///< per cent beside a bar that its label needs
constexpr std::size_t kLabelSize = 26; ///< characters
constexpr double kDonePercent = 100;
constexpr double kLeastDone = 1e-6; ///< per cent of the width: less is left over by rounding

template <typename... Args>
void append(std::string& out, fmt::format_string<Args...> text, Args&&... args) {
    fmt::format_to(std::back_inserter(out), text, std::forward<Args>(args)...);
}

bool isVisible(double left, double right) { return right >= 0 && left <= 100; }

/// The beginning of a long text, with dots behind it.
std::string shortened(std::string_view text, std::size_t most) {
    std::size_t size = 0;
    for (std::size_t count = 0; size < text.size(); ++count) {
        if (count == most)
            return std::string(text.substr(0, size)) + "…";
        size += std::max<std::size_t>(characterSize(text.substr(size)), 1);
    }
    return std::string(text);
}

} // namespace

void GanttChart::appendDefinitions(std::string& out) {
    GanttLinks::appendDefinitions(out);
    append(out, "<path id=\"m\" d=\"M0 {0}l{1} {1} -{1} {1} -{1} -{1}z\"/>", kMiddle - kDiamond, kDiamond);
    append(out, "<path id=\"e\" d=\"M0 {0}h5l-5 5z\"/><path id=\"f\" d=\"M0 {0}h-5l5 5z\"/>",
           kSummaryTop + kSummaryHeight);
    append(out, "<rect id=\"z\" x=\"-2\" y=\"{}\" width=\"{}\" height=\"{}\"/>", kBaselineTop, kLeastBaseline,
           kBaselineHeight);
    out += "<path id=\"v\" d=\"M-4 1h8l-4 6z\"/>";
}

bool GanttChart::isOnAxis(std::optional<std::uint16_t> day) const {
    return day && *day >= _scale.days().first && *day <= _scale.days().last;
}

void GanttChart::appendAxis(std::string& out, std::string_view kind, double width,
                            std::optional<std::uint16_t> today) const {
    const TimeScale::Axis axis = _scale.axis(width);
    append(out, "<svg class=\"axis {}\" aria-hidden=\"true\">", kind);
    const auto line = [&out](const TimeScale::Cell& cell, int top) {
        if (cell.left > 0)
            append(out, "<rect x=\"{}%\" y=\"{}\" width=\"1\" height=\"20\"/>", share(cell.left), top);
    };
    for (const TimeScale::Cell& cell : axis.upper) {
        line(cell, 0);
        if (!cell.label.empty())
            append(out, "<text class=\"up\" x=\"{}%\" dx=\"5\" y=\"15\">{}</text>", share(cell.left), cell.label);
    }
    append(out, "<rect y=\"20\" width=\"100%\" height=\"1\"/>");
    for (const TimeScale::Cell& cell : axis.lower) {
        line(cell, 20);
        if (!cell.label.empty())
            append(out, "<text x=\"{}%\" y=\"32\">{}</text>", share((cell.left + cell.right) / 2), cell.label);
    }
    if (isOnAxis(today))
        append(out, "<rect class=\"now\" x=\"{}%\" y=\"33\" width=\"2\" height=\"7\"/>", share(_scale.atDay(*today)));
    out += "</svg>";
}

void GanttChart::appendBackground(std::string& out, const std::vector<DaySpan>& freeDays,
                                  std::optional<std::uint16_t> today) const {
    out += "<div class=\"back\">";
    for (const Stripe& stripe : stripes(freeDays, _scale.width()))
        append(out, "<i style=\"left:{}%;width:{}%\"></i>", share(stripe.left), share(stripe.right - stripe.left));
    for (const TimeScale::Cell& cell : _scale.axis(_scale.width()).upper)
        if (cell.left > 0)
            append(out, "<b style=\"left:{}%\"></b>", share(cell.left));
    if (isOnAxis(today))
        append(out, "<b class=\"now\" style=\"left:{}%\"></b>", share(_scale.atDay(*today)));
    out += "</div>\n";
}

// As pictures of one colour each behind the cell that holds all lines: browsers cut these in the right places.
void GanttChart::appendPaperBackground(std::string& out, const std::vector<DaySpan>& freeDays,
                                       std::optional<std::uint16_t> today) const {
    const auto line = [&out](double at, std::string_view color, int width) {
        append(out, "linear-gradient(var(--{0}),var(--{0})) {1}% 0/{2}px 100% no-repeat,", color, share(at), width);
    };
    if (isOnAxis(today))
        line(_scale.atDay(*today), "today", 2);
    for (const TimeScale::Cell& cell : _scale.axis(kPaperChart).upper)
        if (cell.left > 0)
            line(cell.left, "line", 1);
    for (const Stripe& stripe : stripes(freeDays, kPaperChart)) {
        const double width = stripe.right - stripe.left;
        if (width < 100) // a place is told in per cent of what the picture leaves
            append(out, "linear-gradient(var(--free),var(--free)) {}% 0/{}% 100% no-repeat,",
                   share(100 * stripe.left / (100 - width)), share(width));
    }
    out += "none";
}

std::vector<GanttChart::Stripe> GanttChart::stripes(const std::vector<DaySpan>& freeDays, double chartWidth) const {
    std::vector<Stripe> stripes;
    for (const DaySpan& span : freeDays) {
        const Stripe stripe{std::max(_scale.atDay(span.first), 0.0), std::min(_scale.atDay(span.last + 1), 100.0)};
        if ((stripe.right - stripe.left) * chartWidth / 100 >= kLeastStripe)
            stripes.push_back(stripe);
    }
    return stripes;
}

void GanttChart::appendRow(std::string& out, std::size_t position, std::string_view label) const {
    const GanttRow& row = _rows[position];
    out += "<svg>";
    _links.appendLines(out, position);
    appendBaseline(out, *row.task);
    if (row.start()) {
        if (row.isDiamond())
            appendDiamond(out, row);
        else
            appendBars(out, row);
    }
    _links.appendTips(out, position);
    if (row.task->deadline && isOnAxis(row.task->deadline->days))
        append(out, "<use href=\"#v\" class=\"dead\" x=\"{}%\"/>", share(_scale.at(*row.task->deadline)));
    if (row.start() && !label.empty())
        appendLabel(out, position, label);
    out += "</svg>";
}

void GanttChart::appendDiamond(std::string& out, const GanttRow& row) const {
    const double x = _scale.at(*row.start());
    if (isVisible(x, x))
        append(out, "<use href=\"#m\" x=\"{}%\"{}/>", share(x), row.isCritical ? " class=\"x\"" : "");
}

void GanttChart::appendBars(std::string& out, const GanttRow& row) const {
    const double left = _scale.at(*row.start()), right = std::max(_scale.at(*row.finish()), left);
    if (!isVisible(left, right))
        return;
    if (row.isSummary) {
        append(out, "<rect class=\"s\" x=\"{0}%\" y=\"{1}\" width=\"{2}%\" height=\"{3}\"/>", share(left), kSummaryTop,
               share(right - left), kSummaryHeight);
        append(out, "<use href=\"#e\" x=\"{}%\"/><use href=\"#f\" x=\"{}%\"/>", share(left), share(right));
        return;
    }
    appendPieces(out, row, left, right);
}

// What is done of a split task is done from its first piece on.
void GanttChart::appendPieces(std::string& out, const GanttRow& row, double left, double right) const {
    std::vector<Stripe> pieces;
    if (row.task->pieces.size() > 1)
        for (const Piece& piece : row.task->pieces)
            pieces.push_back({_scale.at(piece.start), std::max(_scale.at(piece.finish), _scale.at(piece.start))});
    else
        pieces.push_back({left, right});
    double sum = 0;
    for (const Stripe& piece : pieces)
        sum += piece.right - piece.left;
    double done = sum * std::min<double>(row.task->percentComplete, kDonePercent) / kDonePercent;
    if (pieces.size() > 1)
        append(out, "<line class=\"gap\" x1=\"{}%\" y1=\"{}\" x2=\"{}%\" y2=\"{}\"/>", share(std::max(left, -1.0)),
               kMiddle, share(std::min(right, 101.0)), kMiddle);
    for (const Stripe& piece : pieces) {
        if (isVisible(piece.left, piece.right))
            appendBar(out, row.isCritical ? "b x" : "b", piece.left, piece.right);
        const double here = std::min(done, piece.right - piece.left);
        if (here > kLeastDone && isVisible(piece.left, piece.left + here))
            appendBar(out, row.isCritical ? "p x" : "p", piece.left, piece.left + here);
        done -= here;
    }
}

// The part on the axis: browsers draw what is far off with little care.
void GanttChart::appendBar(std::string& out, std::string_view kind, double left, double right) const {
    const double from = std::max(left, -1.0), width = std::min(right, 101.0) - from;
    const std::string size = width * _scale.width() / 100 < kLeastBar ? share(kLeastBar) : share(width) + "%";
    append(out, "<rect class=\"{}\" x=\"{}%\" y=\"{}\" width=\"{}\" height=\"{}\"/>", kind, share(from), kBarTop, size,
           kBarHeight);
}

void GanttChart::appendBaseline(std::string& out, const Task& task) const {
    const auto baseline = task.baselines.find(0);
    if (baseline == task.baselines.end() || !baseline->second.start || !baseline->second.finish)
        return;
    const double left = _scale.at(*baseline->second.start), right = _scale.at(*baseline->second.finish);
    if (!isVisible(left, right))
        return;
    if ((right - left) * _scale.width() / 100 < kLeastBaseline)
        append(out, "<use href=\"#z\" class=\"a\" x=\"{}%\"/>", share((left + right) / 2));
    else
        append(out, "<rect class=\"a\" x=\"{}%\" y=\"{}\" width=\"{}%\" height=\"{}\"/>", share(std::max(left, -1.0)),
               kBaselineTop, share(std::min(right, 101.0) - std::max(left, -1.0)), kBaselineHeight);
}

// Behind the bar and the links that turn there, or before it where the chart ends too soon or a link goes on.
void GanttChart::appendLabel(std::string& out, std::size_t position, std::string_view label) const {
    const GanttRow& row = _rows[position];
    const double left = _scale.at(*row.start()), right = std::max(_scale.at(*row.finish()), left);
    const GanttLinks::Reach reach = _links.reach(position);
    const double turn = kTurn * 100 / _scale.width();
    const bool fitsBehind = right >= 0 && right <= 100 - kLabelRoom, fitsBefore = left >= kLabelRoom && left <= 100;
    const bool isFreeBehind = reach.right <= right + turn, isFreeBefore = reach.left >= left - turn;
    const int gap = row.isDiamond() ? kDiamond + 4 : 5;
    if (fitsBehind && (isFreeBehind || !fitsBefore || !isFreeBefore)) {
        const bool isTurning = isFreeBehind && reach.right > right;
        append(out, "<text x=\"{}%\" dx=\"{}\" y=\"13\">", share(isTurning ? reach.right : right), isTurning ? 3 : gap);
    } else if (fitsBefore) {
        const bool isTurning = isFreeBefore && reach.left < left;
        append(out, "<text class=\"w\" x=\"{}%\" dx=\"-{}\" y=\"13\">", share(isTurning ? reach.left : left),
               isTurning ? 3 : gap);
    } else {
        return;
    }
    appendHtml(out, shortened(label, kLabelSize));
    out += "</text>";
}

} // namespace brackwater::inspect
