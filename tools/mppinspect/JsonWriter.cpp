#include "JsonWriter.h"

#include <fmt/format.h>

#include <cmath>

namespace brackwater::inspect {

namespace {

void appendQuoted(std::string& out, std::string_view text) {
    std::string escape;
    out += '"';
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
