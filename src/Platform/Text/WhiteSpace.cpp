#include "Platform/Text/WhiteSpace.h"

#include <algorithm>
#include <array>

namespace brackwater {
namespace {

constexpr std::array<std::string_view, 25> kWhiteSpaceAndNewlines = {
    // Tab, line ends, and blanks of every width.
    "\t",           "\n",           "\v",
    "\f",           "\r",           "\xC2\x85",
    "\xE2\x80\xA8", "\xE2\x80\xA9", " ",
    "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80",
    "\xE2\x80\x81", "\xE2\x80\x82", "\xE2\x80\x83",
    "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86",
    "\xE2\x80\x87", "\xE2\x80\x88", "\xE2\x80\x89",
    "\xE2\x80\x8A", "\xE2\x80\xAF", "\xE2\x81\x9F",
    "\xE3\x80\x80"};

/// The length of the white-space character that satisfies `isThere`; 0 if there is none.
template <typename Predicate>
std::size_t lengthOfWhiteSpace(Predicate isThere) {
    const auto found = std::find_if(kWhiteSpaceAndNewlines.begin(), kWhiteSpaceAndNewlines.end(), isThere);
    return found == kWhiteSpaceAndNewlines.end() ? 0 : found->size();
}

} // namespace

std::string_view trimmed(std::string_view text) noexcept {
    const auto begins = [&text](std::string_view c) { return text.starts_with(c); };
    const auto ends = [&text](std::string_view c) { return text.ends_with(c); };
    while (const std::size_t length = lengthOfWhiteSpace(begins))
        text.remove_prefix(length);
    while (const std::size_t length = lengthOfWhiteSpace(ends))
        text.remove_suffix(length);
    return text;
}

} // namespace brackwater
