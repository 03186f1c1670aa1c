#include "Html.h"

#include "TextOutput.h"

#include <fmt/format.h>

namespace brackwater::inspect {

void appendHtml(std::string& out, std::string_view text) {
    appendReplacing(out, text, [](char c) -> std::string_view {
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
        default:
            return static_cast<unsigned char>(c) < 0x20 || c == '\x7F' ? " " : "";
        }
    });
}

std::string htmlOf(std::string_view text) {
    std::string html;
    appendHtml(html, text);
    return html;
}

std::string px(double length) {
    std::string text = fmt::format("{:.1f}", length);
    if (text.ends_with(".0"))
        text.resize(text.size() - 2);
    return text == "-0" ? "0" : text;
}

} // namespace brackwater::inspect
