#include "TextTable.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {
constexpr std::string_view kGap = "  ";
}

TextTable::TextTable(std::vector<Column> columns) : _columns(std::move(columns)), _widths(_columns.size()) {}

void TextTable::add(std::vector<std::string> cells) {
    cells.resize(_columns.size());
    for (std::size_t i = 0; i < cells.size(); ++i)
        _widths[i] = std::max(_widths[i], lengthOf(cells[i]));
    _rows.push_back(std::move(cells));
}

void TextTable::appendTo(std::string& out) const {
    std::vector<std::size_t> widths = _widths;
    std::vector<std::string> headings, rules;
    for (std::size_t i = 0; i < _columns.size(); ++i) {
        if (_widths[i] != 0)
            widths[i] = std::max(_widths[i], lengthOf(_columns[i].heading));
        headings.push_back(_columns[i].heading);
        rules.emplace_back(widths[i], '-');
    }
    appendLine(out, headings, widths);
    appendLine(out, rules, widths);
    for (const auto& row : _rows)
        appendLine(out, row, widths);
}

void TextTable::appendLine(std::string& out, const std::vector<std::string>& cells,
                           const std::vector<std::size_t>& widths) const {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (widths[i] == 0)
            continue;
        const std::string filling(widths[i] - std::min(widths[i], lengthOf(cells[i])), ' ');
        line += _columns[i].side == Side::Right ? filling + cells[i] : cells[i] + filling;
        line += kGap;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out += line;
    out += '\n';
}

std::string printable(std::string_view text) {
    std::string shown;
    shown.reserve(text.size());
    for (const char c : text) {
        if (c == '\n')
            shown += "\\n";
        else if (c == '\t')
            shown += ' ';
        else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            shown += fmt::format("\\x{:02x}", static_cast<unsigned char>(c));
        else
            shown += c;
    }
    return shown;
}

std::size_t lengthOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

} // namespace brackwater::inspect
