#include "GanttLinks.h"

#include "Html.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace brackwater::inspect {

namespace {

constexpr int kUnits = 1000;            ///< of a per cent of the chart's width: places in paths are whole numbers
constexpr std::size_t kLongest = 60;    ///< lines between the ends of a link that is drawn whole
constexpr std::size_t kMostPassing = 6; ///< upright lines that cross a line of the chart
constexpr int kStub = 7, kOnto = 3, kClear = 2, kApart = 4; ///< pixels
constexpr double kOutside = 10;                             ///< per cent: farther off the axis nothing is seen

bool leavesFinish(std::uint16_t type) { return type == 0 || type == 1; }
bool reachesFinish(std::uint16_t type) { return type == 0 || type == 2; }

template <typename... Args>
void append(std::string& out, fmt::format_string<Args...> text, Args&&... args) {
    fmt::format_to(std::back_inserter(out), text, std::forward<Args>(args)...);
}

} // namespace

/// A link with the places of its ends.
struct GanttLinks::Ends {
    std::size_t from, to;
    int fromX, toX;
    bool leavesFinish, reachesFinish, isCritical;
    [[nodiscard]] bool goesDown() const { return to > from; }
    [[nodiscard]] std::size_t span() const { return goesDown() ? to - from : from - to; }
};

GanttLinks::GanttLinks(const TimeScale& scale, std::span<const GanttRow> rows, const std::vector<GanttLink>& links)
    : _rows(rows), _scale(scale), _pixel(static_cast<int>(std::ceil(100 * kUnits / scale.width()))),
      _lines(rows.size()) {
    std::vector<Ends> all;
    for (const GanttLink& link : links)
        if (const auto ends = endsOf(link))
            all.push_back(*ends);
    _isEmpty = all.empty();
    // Short ones first: they are the easiest to follow.
    std::ranges::stable_sort(all, {}, &Ends::span);
    for (const Ends& ends : all) {
        if (hasRoom(ends, turnOf(ends)))
            draw(ends);
        else
            drawEnds(ends);
    }
}

std::optional<GanttLinks::Ends> GanttLinks::endsOf(const GanttLink& link) const {
    const GanttRow &from = _rows[link.from], &to = _rows[link.to];
    const bool fromFinish = leavesFinish(link.type), toFinish = reachesFinish(link.type);
    const std::optional<Date>& begin = fromFinish ? from.finish() : from.start();
    const std::optional<Date>& end = toFinish ? to.finish() : to.start();
    if (link.from == link.to || !begin || !end)
        return std::nullopt;
    const auto place = [this](const Date& date) {
        return static_cast<int>(std::lround(std::clamp(_scale.at(date), -kOutside, 100 + kOutside) * kUnits));
    };
    return Ends{link.from, link.to, place(*begin), place(*end), fromFinish, toFinish, from.isCritical && to.isCritical};
}

// A link from a finish to a start that is not before goes straight onto the bar.
int GanttLinks::turnOf(const Ends& ends) const {
    const GanttRow& to = _rows[ends.to];
    const int onto = ends.toX + (to.isDiamond() ? 0 : kOnto * _pixel);
    const bool fromFinish = ends.leavesFinish, toFinish = ends.reachesFinish;
    if (fromFinish && !toFinish && onto >= ends.fromX + kClear * _pixel)
        return onto;
    const int stub = kStub * _pixel, side = (to.isDiamond() ? kDiamond : 0) * _pixel;
    const int outside = toFinish ? ends.toX + stub + side : ends.toX - stub - side;
    if (fromFinish != toFinish)
        return outside;
    return fromFinish ? std::max(ends.fromX + stub, outside) : std::min(ends.fromX - stub, outside);
}

bool GanttLinks::hasRoom(const std::vector<int>& passing, int x) const {
    if (std::ranges::find(passing, x) != passing.end())
        return true; // along a line that is there
    return passing.size() < kMostPassing &&
           std::ranges::none_of(passing, [&](int other) { return std::abs(other - x) < kApart * _pixel; });
}

bool GanttLinks::hasRoom(const Ends& ends, int x) const {
    if (ends.span() > kLongest)
        return false;
    for (std::size_t i = std::min(ends.from, ends.to) + 1; i < std::max(ends.from, ends.to); ++i)
        if (!hasRoom(_lines[i].passing, x))
            return false;
    return true;
}

void GanttLinks::draw(const Ends& ends) {
    const int turn = turnOf(ends), stub = kStub * _pixel;
    const bool goesDown = ends.goesDown();
    const int leaving = goesDown ? kRowHeight : 0, entering = goesDown ? 0 : kRowHeight;
    const bool crosses = ends.leavesFinish != ends.reachesFinish;
    const bool isStraight = ends.leavesFinish && !ends.reachesFinish && turn >= ends.fromX + kClear * _pixel;
    Line &first = _lines[ends.from], &last = _lines[ends.to];
    std::string& begin = ends.isCritical ? first.criticalPath : first.path;
    if (isStraight || !crosses) {
        append(begin, "M{} {}H{}V{}", ends.fromX, kMiddle, turn, leaving);
    } else { // around the bar's end, between the two lines
        const double between = goesDown ? kRowHeight - 0.5 : 0.5;
        append(begin, "M{} {}H{}V{}H{}V{}", ends.fromX, kMiddle, ends.fromX + (ends.leavesFinish ? stub : -stub),
               between, turn, leaving);
    }
    pass(ends, turn);
    reach(first, isStraight || !crosses ? turn : ends.fromX + (ends.leavesFinish ? stub : -stub));
    if (crosses && !isStraight)
        reach(first, turn);
    if (!isStraight)
        reach(last, turn);
    std::string& end = ends.isCritical ? last.criticalPath : last.path;
    if (isStraight) {
        const GanttRow& to = _rows[ends.to];
        const int above = to.isDiamond() ? kMiddle - kDiamond : (to.isSummary ? kSummaryTop : kBarTop);
        const int below =
            to.isDiamond() ? kMiddle + kDiamond : (to.isSummary ? kSummaryTop + kSummaryHeight : kBarTop + kBarHeight);
        append(end, "M{} {}V{}", turn, entering, goesDown ? above - 2 : below + 2);
        addTip(ends, goesDown ? 'd' : 'u', turn, goesDown ? above : below);
    } else {
        append(end, "M{} {}V{}H{}", turn, entering, kMiddle, ends.toX);
        addTip(ends, ends.reachesFinish ? 'l' : 'r', ends.toX, kMiddle);
    }
}

void GanttLinks::pass(const Ends& ends, int x) {
    for (std::size_t i = std::min(ends.from, ends.to) + 1; i < std::max(ends.from, ends.to); ++i) {
        Line& line = _lines[i];
        if (std::ranges::find(line.passing, x) != line.passing.end())
            continue;
        line.passing.push_back(x);
        append(ends.isCritical ? line.criticalPath : line.path, "M{} 0V{}", x, kRowHeight);
    }
}

void GanttLinks::drawEnds(const Ends& ends) {
    _isThinned = true;
    const auto stub = [this](Line& line, int x, bool atRight, int length) {
        bool& isThere = atRight ? line.leavesRight : line.leavesLeft;
        if (isThere)
            return;
        isThere = true;
        reach(line, x + (atRight ? length : -length) * _pixel);
        append(line.path, "M{} {}H{}", x, kMiddle, x + (atRight ? length : -length) * _pixel);
    };
    stub(_lines[ends.from], ends.fromX, ends.leavesFinish, kStub);
    stub(_lines[ends.to], ends.toX, ends.reachesFinish, 2 * kStub);
    addTip(ends, ends.reachesFinish ? 'l' : 'r', ends.toX, kMiddle);
}

void GanttLinks::reach(Line& line, int x) {
    line.left = std::min(line.left, x);
    line.right = std::max(line.right, x);
}

GanttLinks::Reach GanttLinks::reach(std::size_t position) const {
    const Line& line = _lines[position];
    return {static_cast<double>(line.left) / kUnits, static_cast<double>(line.right) / kUnits};
}

void GanttLinks::addTip(const Ends& ends, char direction, int x, int y) {
    std::string& tips = _lines[ends.to].tips;
    const bool isBeside = (direction == 'l' || direction == 'r') && _rows[ends.to].isDiamond();
    const std::string tip =
        fmt::format("<use{} href=\"#{}{}\" x=\"{}%\" y=\"{}\"/>", ends.isCritical ? " class=\"x\"" : "", direction,
                    isBeside ? "m" : "", share(static_cast<double>(x) / kUnits), y);
    if (tips.find(tip) == std::string::npos)
        tips += tip;
}

void GanttLinks::appendLines(std::string& out, std::size_t position) const {
    const Line& line = _lines[position];
    if (line.path.empty() && line.criticalPath.empty())
        return;
    append(out, "<svg viewBox=\"0 0 {} {}\" preserveAspectRatio=\"none\">", 100 * kUnits, kRowHeight);
    if (!line.path.empty())
        append(out, "<path d=\"{}\"/>", line.path);
    if (!line.criticalPath.empty())
        append(out, "<path class=\"x\" d=\"{}\"/>", line.criticalPath);
    out += "</svg>";
}

void GanttLinks::appendTips(std::string& out, std::size_t position) const { out += _lines[position].tips; }

void GanttLinks::appendDefinitions(std::string& out) {
    out += "<path id=\"d\" d=\"M0 0l-2.5 -4h5z\"/><path id=\"u\" d=\"M0 0l-2.5 4h5z\"/>"
           "<path id=\"r\" d=\"M0 0l-6 -3v6z\"/><path id=\"l\" d=\"M0 0l6 -3v6z\"/>";
    append(out, "<path id=\"rm\" d=\"M-{0} 0l-6 -3v6z\"/><path id=\"lm\" d=\"M{0} 0l6 -3v6z\"/>", kDiamond);
}

} // namespace brackwater::inspect
