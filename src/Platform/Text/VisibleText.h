#pragma once

#include <string>
#include <string_view>

namespace brackwater {

/// The text as a terminal may show it: controls, line and paragraph separators, marks that turn the direction of
/// writing, and other characters without a look of their own stand as "\u{202e}", bytes that are no UTF-8 as "\xff".
/// One line stays one line, and no part of it can pass for another.
[[nodiscard]] std::string visibleText(std::string_view text);

} // namespace brackwater
