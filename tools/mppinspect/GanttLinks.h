#pragma once

#include "GanttRow.h"
#include "TimeScale.h"

#include <limits>
#include <span>

namespace brackwater::inspect {

/// The links of a chart as each line shows its part of them, so that lines may be folded away and pages broken between
/// them. Where many would pass a line, and where the ends are far apart, only the ends of a link are drawn.
class GanttLinks {
public:
    /// Links without dates at both ends are left out.
    GanttLinks(const TimeScale& scale, std::span<const GanttRow> rows, const std::vector<GanttLink>& links);

    /// What stands behind the bar of the line.
    void appendLines(std::string& out, std::size_t position) const;
    /// Points of arrows, which end at the bar.
    void appendTips(std::string& out, std::size_t position) const;
    /// How far the links go sideways from the bar in the line, as shares of the width: a label stands beyond.
    struct Reach {
        double left, right;
    };
    [[nodiscard]] Reach reach(std::size_t position) const;
    [[nodiscard]] bool isThinned() const noexcept { return _isThinned; }
    [[nodiscard]] bool isEmpty() const noexcept { return _isEmpty; }

    /// Symbols that the tips refer to.
    static void appendDefinitions(std::string& out);

private:
    struct Line {
        std::string path, criticalPath, tips;
        int left = std::numeric_limits<int>::max(), right = std::numeric_limits<int>::min(); ///< as far as links go
        std::vector<int> passing;                     ///< places of the upright lines that cross the whole line
        bool leavesLeft = false, leavesRight = false; ///< whether a link that is not drawn whole is shown there
    };
    struct Ends;

    [[nodiscard]] std::optional<Ends> endsOf(const GanttLink& link) const;
    [[nodiscard]] bool hasRoom(const Ends& ends, int x) const;
    [[nodiscard]] bool hasRoom(const std::vector<int>& passing, int x) const;
    [[nodiscard]] int turnOf(const Ends& ends) const;
    void draw(const Ends& ends);
    void drawEnds(const Ends& ends);
    void pass(const Ends& ends, int x);
    static void reach(Line& line, int x);
    void addTip(const Ends& ends, char direction, int x, int y);

    std::span<const GanttRow> _rows;
    const TimeScale& _scale;
    int _pixel; ///< of the narrowest chart
    std::vector<Line> _lines;
    bool _isThinned = false, _isEmpty = true;
};

} // namespace brackwater::inspect
