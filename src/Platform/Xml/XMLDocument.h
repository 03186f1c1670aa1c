#pragma once

#include "Platform/Xml/XMLElement.h"

#include <memory>
#include <string>
#include <string_view>

namespace brackwater {

class XMLSource;

namespace xmltree {
class Tree;
}

/// An XML document in memory, and the owner of all its nodes.
///
/// The source is not trusted: no network, no external part is read, libxml2's limits on depth and text length stay on.
/// A DOCTYPE line is read over; one that holds declarations, of entities for instance, is refused, and so is a start
/// tag with more attributes than any document has. A document that is not well-formed is repaired: the first repairs
/// are logged, a line "WARNING: ..." each that names file, line and fault, the rest is counted. One that is empty, has
/// no root, ends too early (elements still open) or goes on with markup behind its root is refused. Line ends and
/// indents between elements are not part of the tree.
class XMLDocument {
public:
    /// Reads a file. Nothing where it gives no document; `reason` (may be null) then tells why.
    [[nodiscard]] static std::unique_ptr<XMLDocument> readFile(const std::string& path, std::string* reason = nullptr);
    /// The same for a text in memory; `name` stands for the file's path in log lines.
    [[nodiscard]] static std::unique_ptr<XMLDocument> readText(std::string_view text, std::string_view name,
                                                               std::string* reason = nullptr);
    /// An empty document with a root element.
    [[nodiscard]] static std::unique_ptr<XMLDocument> withRootElement(std::string_view name);

    ~XMLDocument();
    XMLDocument(const XMLDocument&) = delete;
    XMLDocument& operator=(const XMLDocument&) = delete;

    [[nodiscard]] XMLElement rootElement() const;
    /// Pretty printed text with an XML declaration, empty elements compact.
    [[nodiscard]] std::string serialized() const;

private:
    explicit XMLDocument(std::unique_ptr<xmltree::Tree> tree);
    static std::unique_ptr<XMLDocument> read(XMLSource& source, std::string_view name, std::string* reason);

    std::unique_ptr<xmltree::Tree> _tree;
};

} // namespace brackwater
