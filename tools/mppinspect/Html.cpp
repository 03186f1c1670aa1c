#include "Html.h"

#include "TextOutput.h"

#include <fmt/format.h>

namespace brackwater::inspect {

namespace {

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }

void appendWith(std::string& out, std::string_view text, std::string_view lineEnd) {
    std::string html;
    appendReplacing(html, text, [lineEnd](char c) -> std::string_view {
        switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        case '\n':
            return lineEnd;
        default:
            return isControl(c) ? " " : "";
        }
    });
    // The controls from U+0080 to U+009F take two bytes.
    std::string_view rest = html;
    for (std::size_t at = 0; (at = rest.find('\xC2', at)) != std::string_view::npos;) {
        if (static_cast<unsigned char>(rest[at + 1]) >= 0xA0) {
            at += 2;
            continue;
        }
        out.append(rest.substr(0, at)).append(" ");
        rest.remove_prefix(at + 2);
        at = 0;
    }
    out += rest;
}

} // namespace

void appendHtml(std::string& out, std::string_view text) { appendWith(out, text, " "); }

void appendHtmlLines(std::string& out, std::string_view text) { appendWith(out, text, "&#10;"); }

std::string htmlOf(std::string_view text) {
    std::string html;
    appendHtml(html, text);
    return html;
}

std::string share(double number) {
    std::string text = fmt::format("{:.3f}", number);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text == "-0" ? "0" : text;
}

} // namespace brackwater::inspect
