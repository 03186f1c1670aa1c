#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace brackwater {

namespace xmltree {
class Tree;
}

class XMLSource;

/// Reads a source as a tree under the rules of XMLDocument, for that class. It is read a second time only where it must
/// be repaired byte by byte. `name` stands for the document in log lines. Null where the source gives no tree, with
/// `reason` telling why.
[[nodiscard]] std::unique_ptr<xmltree::Tree> parseXML(XMLSource& source, std::string_view name, std::string& reason);

/// Makes the library ready, once: nothing it has to say is printed, no external part is ever loaded.
void prepareXMLLibrary();

} // namespace brackwater
