#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brackwater::inspect {

/// A table with a heading line. Columns in which no row has a text are not shown. Cells hold texts as they are in the
/// file; what a terminal must not see is escaped where the table is written.
class TextTable {
public:
    enum class Side {
        Left,
        Right,
        Tree ///< to the left, indented row by row
    };
    struct Column {
        std::string heading;
        Side side = Side::Left;
        int rank = 0; ///< where the room is short, the highest goes first; 0 stays
    };

    explicit TextTable(std::vector<Column> columns);
    /// As many cells as there are columns; `indent` characters in front of a tree's text.
    void add(std::vector<std::string> cells, std::size_t indent = 0);
    [[nodiscard]] bool empty() const noexcept { return _rows.empty(); }
    /// As wide as its texts, but no column is filled up to more than a hundred characters. With a terminal's width,
    /// texts are cut and columns left out until a line fits, and a line below names what was left out.
    void appendTo(std::string& out, std::size_t width = 0) const;
    /// All columns as comma-separated values with a line of headings, texts as they are. An apostrophe stands in front
    /// of a text that spreadsheets would take for a formula.
    void appendCsv(std::string& out) const;

private:
    struct Row {
        std::vector<std::string> cells;
        std::size_t indent = 0;
    };
    [[nodiscard]] std::string shown(const Row& row, std::size_t column) const;
    /// What a text's length is: its characters where the table goes to a file, else the columns that it takes.
    using Measure = std::size_t (*)(std::string_view text);
    [[nodiscard]] std::vector<std::size_t> naturalWidths(Measure measure) const;
    void fit(std::vector<std::size_t>& widths, std::size_t width) const;
    [[nodiscard]] std::size_t columnToLeaveOut(const std::vector<std::size_t>& widths) const;
    [[nodiscard]] bool canShrink(std::size_t column) const { return _columns[column].side != Side::Right; }
    void appendLine(std::string& out, const std::vector<std::string>& cells, const std::vector<std::size_t>& widths,
                    bool cut) const;

    std::vector<Column> _columns;
    std::vector<Row> _rows;
};

/// The text on one line and harmless to a terminal: control characters, line and paragraph separators and characters
/// that turn the direction of writing stand as escapes.
[[nodiscard]] std::string printable(std::string_view text);
/// Code points of UTF-8 text.
[[nodiscard]] std::size_t lengthOf(std::string_view text);
/// Columns of a terminal that UTF-8 text takes.
[[nodiscard]] std::size_t columnsOf(std::string_view text);

} // namespace brackwater::inspect
