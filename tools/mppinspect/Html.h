#pragma once

#include <string>
#include <string_view>

namespace brackwater::inspect {

/// Appends text so that it may stand in an element or between the quotes of an attribute. Control characters become
/// blanks.
void appendHtml(std::string& out, std::string_view text);
/// The same, but line ends stay, as attributes show them.
void appendHtmlLines(std::string& out, std::string_view text);
[[nodiscard]] std::string htmlOf(std::string_view text);
/// A number with three decimals at most.
[[nodiscard]] std::string share(double number);

} // namespace brackwater::inspect
