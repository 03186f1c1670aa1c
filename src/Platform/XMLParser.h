#pragma once

#include <string>
#include <string_view>

struct _xmlDoc; // NOLINT: libxml2's own name

namespace brackwater {

/// Reads a text as a tree under the rules of XMLDocument, for that class. `text` must be followed by a NUL byte and is
/// not needed any more afterwards; `name` stands for the document in log lines. The caller owns the tree; null where
/// the text gives none, with `reason` telling why.
[[nodiscard]] _xmlDoc* parseXML(std::string_view text, std::string_view name, std::string& reason);

/// Makes the library ready, once: nothing it has to say is printed, no external part is ever loaded.
void prepareXMLLibrary();

} // namespace brackwater
