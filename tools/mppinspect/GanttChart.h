#pragma once

#include "GanttLinks.h"

namespace brackwater::inspect {

/// Draws the right half of the page. Everything across stands at shares of the width, so that the chart fits the screen
/// or the paper.
class GanttChart {
public:
    GanttChart(const TimeScale& scale, std::span<const GanttRow> rows, const GanttLinks& links)
        : _scale(scale), _rows(rows), _links(links) {}

    /// Symbols that the drawings refer to.
    static void appendDefinitions(std::string& out);
    /// The two lines of the axis, with labels for a chart of this width in pixels.
    void appendAxis(std::string& out, std::string_view kind, double width, std::optional<std::uint16_t> today) const;
    /// What stands behind all lines: free days, grid, today.
    void appendBackground(std::string& out, const std::vector<DaySpan>& freeDays,
                          std::optional<std::uint16_t> today) const;
    /// The same for paper, as the value of a style's background.
    void appendPaperBackground(std::string& out, const std::vector<DaySpan>& freeDays,
                               std::optional<std::uint16_t> today) const;
    /// Links, baseline, bar, progress and label of the line at the position.
    void appendRow(std::string& out, std::size_t position, std::string_view label) const;
    /// Whether free days are wide enough to be seen.
    [[nodiscard]] bool hasStripes(const std::vector<DaySpan>& freeDays) const {
        return !stripes(freeDays, _scale.width()).empty();
    }
    [[nodiscard]] bool isOnAxis(std::optional<std::uint16_t> day) const;

private:
    struct Stripe {
        double left, right;
    };
    [[nodiscard]] std::vector<Stripe> stripes(const std::vector<DaySpan>& freeDays, double chartWidth) const;
    void appendBars(std::string& out, const GanttRow& row) const;
    void appendPieces(std::string& out, const GanttRow& row, double left, double right) const;
    void appendBar(std::string& out, std::string_view kind, double left, double right) const;
    void appendDiamond(std::string& out, const GanttRow& row) const;
    void appendBaseline(std::string& out, const Task& task) const;
    void appendLabel(std::string& out, std::size_t position, std::string_view label) const;

    const TimeScale& _scale;
    std::span<const GanttRow> _rows;
    const GanttLinks& _links;
};

} // namespace brackwater::inspect
