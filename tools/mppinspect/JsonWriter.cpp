#include "JsonWriter.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>

namespace brackwater::inspect {

namespace {

/// The code of a character of two or three bytes that a terminal would obey or that turns the direction of what
/// follows; 0 for any other.
unsigned codeOfHidden(std::string_view character) {
    const auto byteAt = [character](std::size_t i) {
        return static_cast<unsigned>(static_cast<unsigned char>(character[i]));
    };
    unsigned code = 0;
    if (character.size() == 2)
        code = (byteAt(0) & 0x1F) << 6 | (byteAt(1) & 0x3F);
    else if (character.size() == 3)
        code = (byteAt(0) & 0x0F) << 12 | (byteAt(1) & 0x3F) << 6 | (byteAt(2) & 0x3F);
    const auto isBetween = [code](unsigned first, unsigned last) { return code >= first && code <= last; };
    const bool isHidden = isBetween(0x80, 0x9F) || code == 0x061C || code == 0x200E || code == 0x200F ||
                          isBetween(0x2028, 0x202E) || isBetween(0x2066, 0x2069) || code == 0xFEFF;
    return isHidden ? code : 0;
}

void appendPiece(std::string& out, std::string_view text) {
    std::string escape;
    appendReplacing(out, text, [&escape](char c) -> std::string_view {
        if (c == '"')
            return "\\\"";
        if (c == '\\')
            return "\\\\";
        if (c == '\n')
            return "\\n";
        if (static_cast<unsigned char>(c) >= 0x20 && c != '\x7F')
            return {};
        escape = fmt::format("\\u{:04x}", static_cast<unsigned>(static_cast<unsigned char>(c)));
        return escape;
    });
}

void appendQuoted(std::string& out, std::string_view text) {
    out += '"';
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = characterSize(text.substr(at));
        const unsigned hidden = codeOfHidden(text.substr(at, size));
        if (hidden != 0) {
            appendPiece(out, text.substr(begin, at - begin));
            fmt::format_to(std::back_inserter(out), "\\u{:04x}", hidden);
            begin = at + size;
        }
        at += size == 0 ? 1 : size;
    }
    appendPiece(out, text.substr(begin));
    out += '"';
}

} // namespace

void JsonWriter::begin(char bracket) {
    separate();
    _out.text() += bracket;
    _hasChildren.push_back(false);
}

void JsonWriter::end(char bracket) {
    const bool hadChildren = _hasChildren.back();
    _hasChildren.pop_back();
    if (hadChildren)
        newLine();
    _out.text() += bracket;
}

void JsonWriter::key(std::string_view name) {
    separate();
    appendQuoted(_out.text(), name);
    _out.text() += ": ";
    _afterKey = true;
}

void JsonWriter::separate() {
    if (!_afterKey && !_hasChildren.empty()) {
        if (_hasChildren.back())
            _out.text() += ',';
        _hasChildren.back() = true;
        newLine();
    }
    _afterKey = false;
}

void JsonWriter::newLine() {
    _out.text() += '\n';
    _out.text().append(2 * _hasChildren.size(), ' ');
}

void JsonWriter::text(std::string_view value) {
    separate();
    appendQuoted(_out.text(), value);
}

void JsonWriter::number(std::int64_t value) {
    separate();
    _out.text() += fmt::format("{}", value);
}

void JsonWriter::number(double value) {
    if (!std::isfinite(value))
        return null();
    separate();
    _out.text() += fmt::format("{}", value == 0 ? 0.0 : value);
}

void JsonWriter::boolean(bool value) {
    separate();
    _out.text() += value ? "true" : "false";
}

void JsonWriter::null() {
    separate();
    _out.text() += "null";
}

void JsonWriter::finish() {
    _out.text() += '\n';
    _out.flush();
}

} // namespace brackwater::inspect
