#include "TextTable.h"

#include "TextOutput.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <glib.h>

#include <algorithm>
#include <numeric>

namespace brackwater::inspect {

namespace {

constexpr std::string_view kGap = "  ";
constexpr std::size_t kWidest = 100;   ///< beyond it a column is not filled up
constexpr std::size_t kNarrowest = 16; ///< as long as there are columns to leave out
constexpr std::size_t kLeast = 4;

// The size that characterSize tells is that of a sound character, which may be decoded without a look.
std::uint32_t codePointOf(std::string_view character) { return g_utf8_get_char(character.data()); }

std::size_t columnsOfCharacter(std::uint32_t codePoint) {
    if (g_unichar_iszerowidth(codePoint) != FALSE)
        return 0;
    return g_unichar_iswide(codePoint) != FALSE ? 2 : 1;
}

bool isHarmful(std::uint32_t codePoint) {
    const auto isBetween = [codePoint](std::uint32_t first, std::uint32_t last) {
        return codePoint >= first && codePoint <= last;
    };
    constexpr std::uint32_t arabicMark = 0x61C;
    return codePoint < 0x20 || isBetween(0x7F, 0x9F) || codePoint == arabicMark || isBetween(0x200E, 0x200F) ||
           isBetween(0x2028, 0x202E) || isBetween(0x2066, 0x2069);
}

std::string escapeOf(std::uint32_t codePoint) {
    if (codePoint == '\n')
        return "\\n";
    if (codePoint == '\t')
        return " ";
    return codePoint < 0x80 ? fmt::format("\\x{:02x}", codePoint) : fmt::format("\\u{:04x}", codePoint);
}

std::size_t lineWidth(const std::vector<std::size_t>& widths) {
    const auto shown = static_cast<std::size_t>(std::ranges::count_if(widths, [](std::size_t w) { return w != 0; }));
    return std::accumulate(widths.begin(), widths.end(), std::size_t{0}) + (shown == 0 ? 0 : (shown - 1) * kGap.size());
}

// At most so many columns of the text, the last one a sign that something follows.
std::string cutTo(std::string_view text, std::size_t width) {
    if (columnsOf(text) <= width)
        return std::string(text);
    std::size_t used = 1, end = 0;
    while (end < text.size()) {
        const std::size_t size = std::max<std::size_t>(characterSize(text.substr(end)), 1);
        const std::size_t columns = columnsOfCharacter(codePointOf(text.substr(end)));
        if (used + columns > width)
            break;
        used += columns;
        end += size;
    }
    return std::string(text.substr(0, end)) + "…";
}

} // namespace

TextTable::TextTable(std::vector<Column> columns) : _columns(std::move(columns)) {}

void TextTable::add(std::vector<std::string> cells, std::size_t indent) {
    cells.resize(_columns.size());
    _rows.push_back({std::move(cells), indent});
}

std::string TextTable::shown(const Row& row, std::size_t column) const {
    std::string text = printable(row.cells[column]);
    if (_columns[column].side == Side::Tree)
        text.insert(0, row.indent, ' ');
    return text;
}

// 0 for a column without texts.
std::vector<std::size_t> TextTable::naturalWidths(Measure measure) const {
    std::vector<std::size_t> widths(_columns.size());
    for (const Row& row : _rows)
        for (std::size_t i = 0; i < widths.size(); ++i)
            if (widths[i] < kWidest)
                widths[i] = std::max(widths[i], std::min(measure(shown(row, i)), kWidest));
    for (std::size_t i = 0; i < widths.size(); ++i)
        if (widths[i] != 0)
            widths[i] = std::max(widths[i], measure(_columns[i].heading));
    return widths;
}

void TextTable::fit(std::vector<std::size_t>& widths, std::size_t width) const {
    const auto shrunk = [&](std::size_t least) {
        std::vector<std::size_t> narrow = widths;
        for (std::size_t i = 0; i < narrow.size(); ++i)
            if (canShrink(i))
                narrow[i] = std::min(narrow[i], least);
        return lineWidth(narrow);
    };
    while (shrunk(kNarrowest) > width) {
        const std::size_t column = columnToLeaveOut(widths);
        if (column == widths.size())
            break;
        widths[column] = 0;
    }
    const std::size_t least = shrunk(kNarrowest) > width ? kLeast : kNarrowest;
    for (std::size_t line = lineWidth(widths); line > width; line = lineWidth(widths)) {
        std::size_t widest = widths.size();
        for (std::size_t i = 0; i < widths.size(); ++i)
            if (canShrink(i) && widths[i] > least && (widest == widths.size() || widths[i] > widths[widest]))
                widest = i;
        if (widest == widths.size())
            return;
        --widths[widest];
    }
}

std::size_t TextTable::columnToLeaveOut(const std::vector<std::size_t>& widths) const {
    std::size_t found = widths.size();
    for (std::size_t i = 0; i < widths.size(); ++i)
        if (widths[i] != 0 && _columns[i].rank > (found == widths.size() ? 0 : _columns[found].rank))
            found = i;
    return found;
}

void TextTable::appendTo(std::string& out, std::size_t width) const {
    const std::vector<std::size_t> natural = naturalWidths(width == 0 ? lengthOf : columnsOf);
    std::vector<std::size_t> widths = natural;
    if (width != 0)
        fit(widths, width);
    std::vector<std::string> headings, rules, leftOut;
    for (std::size_t i = 0; i < _columns.size(); ++i) {
        headings.push_back(_columns[i].heading);
        rules.emplace_back(widths[i], '-');
        if (widths[i] == 0 && natural[i] != 0)
            leftOut.push_back(_columns[i].heading);
    }
    appendLine(out, headings, widths, width != 0);
    appendLine(out, rules, widths, width != 0);
    std::vector<std::string> cells(_columns.size());
    for (const Row& row : _rows) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            cells[i] = widths[i] == 0 ? std::string() : shown(row, i);
        appendLine(out, cells, widths, width != 0);
    }
    if (!leftOut.empty())
        out += fmt::format("Not shown for want of room: {}\n", fmt::join(leftOut, ", "));
}

void TextTable::appendLine(std::string& out, const std::vector<std::string>& cells,
                           const std::vector<std::size_t>& widths, bool cut) const {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (widths[i] == 0)
            continue;
        const std::string cell = cut ? cutTo(cells[i], widths[i]) : cells[i];
        const std::string filling(widths[i] - std::min(widths[i], cut ? columnsOf(cell) : lengthOf(cell)), ' ');
        line += _columns[i].side == Side::Right ? filling + cell : cell + filling;
        line += kGap;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out += line;
    out += '\n';
}

void TextTable::appendCsv(std::string& out) const {
    const auto appendField = [&out](std::string_view text, bool last) {
        if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
            out += text;
        } else {
            out += '"';
            for (const char c : text)
                out.append(c == '"' ? 2 : 1, c);
            out += '"';
        }
        out += last ? "\r\n" : ",";
    };
    for (std::size_t i = 0; i < _columns.size(); ++i)
        appendField(_columns[i].heading, i + 1 == _columns.size());
    for (const Row& row : _rows)
        for (std::size_t i = 0; i < _columns.size(); ++i) {
            const std::string& cell = row.cells[i];
            const bool looksLikeFormula = _columns[i].side != Side::Right && !cell.empty() &&
                                          std::string_view("=+-@\t\r").find(cell.front()) != std::string_view::npos;
            appendField(looksLikeFormula ? "'" + cell : cell, i + 1 == _columns.size());
        }
}

std::string printable(std::string_view text) {
    std::string safe;
    safe.reserve(text.size());
    while (!text.empty()) {
        const std::size_t size = characterSize(text);
        if (size == 0)
            safe += "\xEF\xBF\xBD";
        else if (const std::uint32_t codePoint = codePointOf(text); isHarmful(codePoint))
            safe += escapeOf(codePoint);
        else
            safe += text.substr(0, size);
        text.remove_prefix(std::max<std::size_t>(size, 1));
    }
    return safe;
}

std::size_t lengthOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) {
        const std::size_t size = characterSize(text);
        columns += size == 0 ? 1 : columnsOfCharacter(codePointOf(text));
        text.remove_prefix(std::max<std::size_t>(size, 1));
    }
    return columns;
}

} // namespace brackwater::inspect
