#pragma once

#include "Platform/Values/Error.h"
#include "Platform/Xml/XMLQuery.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

namespace xmltree {
struct Element;
}

/// An element of an XML tree: a light handle that is copied freely and is valid as long as its XMLDocument. Names are
/// local names.
class XMLElement {
public:
    explicit XMLElement(xmltree::Element* node) noexcept : _node(node) {}

    [[nodiscard]] std::string_view name() const noexcept;
    /// The text of the element and all elements below it.
    [[nodiscard]] std::string stringValue() const;
    /// The same without a copy where the text stands in one piece, as it nearly always does: a view into the tree,
    /// otherwise into `storage`. Valid as long as both are left alone.
    [[nodiscard]] std::string_view textView(std::string& storage) const;
    [[nodiscard]] std::optional<std::string> attributeForName(std::string_view name) const;
    /// The same without a copy: a view into the tree.
    [[nodiscard]] std::optional<std::string_view> attributeView(std::string_view name) const noexcept;
    [[nodiscard]] std::optional<XMLElement> parent() const noexcept;
    /// The elements below this one in document order: a reader that needs many children walks them once.
    [[nodiscard]] std::optional<XMLElement> firstChildElement() const noexcept;
    [[nodiscard]] std::optional<XMLElement> nextSiblingElement() const noexcept;
    /// The element as XML on one line, cut after some hundred bytes, for messages.
    [[nodiscard]] std::string description() const;
    /// The namespace URIs that this element declares, in document order.
    [[nodiscard]] std::vector<std::string> namespaces() const;

    /// The elements that the query finds relative to this one (from the root, where the query begins with "//"), in
    /// document order. Queries for "task[@id='...']" and "//assignment[...]" go through an index that the document
    /// builds once.
    [[nodiscard]] std::vector<XMLElement> objectsForXQuery(const XMLQuery& query, Error* error = nullptr) const;
    /// The number that objectsForXQuery would find and the last of them, without a list.
    struct LastFound;
    [[nodiscard]] LastFound lastObjectForXQuery(const XMLQuery& query, Error* error = nullptr) const;

    // Building. A change drops the document's indexes; the next query that needs one builds it anew. An index counts
    // the nodes below this element; one outside them raises NSRangeException.
    void setAttribute(std::string_view name, std::string_view value);
    XMLElement addChild(std::string_view name);
    XMLElement insertChild(std::string_view name, int index);
    void setStringValue(std::string_view text);
    void addComment(std::string_view text);
    void insertComment(std::string_view text, int index);

    /// The handle's node, for this folder's sources.
    [[nodiscard]] xmltree::Element* node() const noexcept { return _node; }
    friend bool operator==(const XMLElement&, const XMLElement&) = default;

private:
    xmltree::Element* _node;
};

struct XMLElement::LastFound {
    std::size_t count = 0;
    std::optional<XMLElement> last;
};

} // namespace brackwater
