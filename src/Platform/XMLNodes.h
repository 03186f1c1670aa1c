#pragma once

#include <libxml/tree.h>

#include <string>
#include <string_view>

/// What the XML sources of this folder share: walking libxml2's nodes without copies. Not for other folders.
namespace brackwater::xmlnodes {

inline std::string_view view(const xmlChar* text) noexcept {
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

/// Whether a node's or attribute's name is this one. Most names differ in their first byte.
inline bool isNamed(const xmlChar* name, std::string_view wanted) noexcept {
    if (name == nullptr || wanted.empty() || *name != static_cast<xmlChar>(wanted.front()))
        return false;
    const char* text = reinterpret_cast<const char*>(name);
    std::size_t at = 1;
    while (at < wanted.size() && text[at] == wanted[at]) // stops at the name's NUL: no wanted name holds one
        if (text[at++] == '\0')
            return false;
    return at == wanted.size() && text[at] == '\0';
}

inline xmlNode* elementFrom(xmlNode* node) noexcept {
    while (node != nullptr && node->type != XML_ELEMENT_NODE)
        node = node->next;
    return node;
}

inline xmlNode* firstElementBelow(const xmlNode* node) noexcept { return elementFrom(node->children); }

/// The element named `name` at or behind `node` among its siblings.
inline xmlNode* elementNamedFrom(xmlNode* node, std::string_view name) noexcept {
    while (node != nullptr && !(node->type == XML_ELEMENT_NODE && isNamed(node->name, name)))
        node = node->next;
    return node;
}

/// The node behind `node` in document order below `top`, children first. References to entities are not entered.
inline xmlNode* nextBelow(xmlNode* node, const xmlNode* top) noexcept {
    if (node->type == XML_ELEMENT_NODE && node->children != nullptr)
        return node->children;
    while (node != top && node->next == nullptr)
        node = node->parent;
    return node == top ? nullptr : node->next;
}

/// The attribute of this local name, one without a prefix first; nothing where there is none.
inline const xmlAttr* attributeOf(const xmlNode* element, std::string_view name) noexcept {
    const xmlAttr* prefixed = nullptr;
    for (const xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
        if (!isNamed(attribute->name, name))
            continue;
        if (attribute->ns == nullptr)
            return attribute;
        if (prefixed == nullptr)
            prefixed = attribute;
    }
    return prefixed;
}

/// Text of the nodes from `first` on and all below them: a view into the tree where it stands in one piece, otherwise
/// into `storage`. A reference to an entity that nobody declared counts as its own text.
std::string_view textOf(xmlNode* first, std::string& storage);

} // namespace brackwater::xmlnodes
