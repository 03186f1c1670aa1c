#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

namespace xmltree {
class Tree;
}

/// Gives a document's text, or nothing with `fault` telling why.
using XMLText = std::function<std::optional<std::string>(std::string& fault)>;

/// Reads a text as a tree under the rules of XMLDocument, for that class. The text is fetched, and fetched again only
/// where it must be repaired byte by byte, so that it takes no room beside the growing tree. `name` stands for the
/// document in log lines. Null where the text gives none, with `reason` telling why.
[[nodiscard]] std::unique_ptr<xmltree::Tree> parseXML(const XMLText& text, std::string_view name, std::string& reason);

/// The library counts bytes in 32 bits; larger documents are refused.
inline constexpr std::size_t kLargestXMLText = 0x7FFFFFFF - 1;

/// Makes the library ready, once: nothing it has to say is printed, no external part is ever loaded.
void prepareXMLLibrary();

} // namespace brackwater
