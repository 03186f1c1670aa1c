#pragma once

#include <string>
#include <string_view>

namespace brackwater {

/// The text made safe for a terminal: control characters, line and paragraph separators, marks that change the writing
/// direction, and other invisible characters are escaped as "\u{202e}", bytes that are not UTF-8 as "\xff". One line
/// stays one line, and no part of it can pass for another.
[[nodiscard]] std::string visibleText(std::string_view text);

} // namespace brackwater
