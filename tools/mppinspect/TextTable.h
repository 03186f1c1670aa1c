#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brackwater::inspect {

/// A table with a heading line, as wide as its texts. Columns in which no row has a text are left out.
class TextTable {
public:
    enum class Side { Left, Right };
    struct Column {
        std::string heading;
        Side side = Side::Left;
    };

    explicit TextTable(std::vector<Column> columns);
    /// As many cells as there are columns.
    void add(std::vector<std::string> cells);
    [[nodiscard]] bool empty() const noexcept { return _rows.empty(); }
    void appendTo(std::string& out) const;

private:
    void appendLine(std::string& out, const std::vector<std::string>& cells,
                    const std::vector<std::size_t>& widths) const;

    std::vector<Column> _columns;
    std::vector<std::size_t> _widths; ///< 0 for a column without texts
    std::vector<std::vector<std::string>> _rows;
};

/// The text on one line and harmless to a terminal: control characters stand as escapes.
[[nodiscard]] std::string printable(std::string_view text);
/// Code points of UTF-8 text.
[[nodiscard]] std::size_t lengthOf(std::string_view text);

} // namespace brackwater::inspect
