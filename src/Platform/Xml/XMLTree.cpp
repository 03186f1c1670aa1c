#include "Platform/Xml/XMLTree.h"

#include <libxml/tree.h>

#include <algorithm>
#include <memory>

namespace brackwater::xmltree {

namespace {

constexpr std::size_t kFirstBlock = 4096;

void appendText(std::string& text, const Node* node) {
    if (node->kind == Kind::Text)
        text += asText(node)->view();
    else if (node->kind == Kind::Reference)
        text.append("&").append(asText(node)->view()).append(";");
}

} // namespace

std::string_view textOf(const Element* element, std::string& storage) {
    Node* const first = element->first;
    if (first == nullptr)
        return {};
    if (first->next == nullptr && first->kind == Kind::Text)
        return asText(first)->view();
    storage.clear();
    for (Node* node = first; node != nullptr; node = nextBelow(node, element))
        appendText(storage, node);
    return storage;
}

Tree::Tree() : _arena(kFirstBlock), _index(&_document) {
    _document.kind = Kind::Document;
    _document.tree = this;
}

Tree::~Tree() {
    if (_names != nullptr)
        xmlDictFree(_names);
}

Tree& Tree::of(const Element* element) noexcept {
    while (element->kind != Kind::Document)
        element = element->parent;
    return *static_cast<const DocumentNode*>(element)->tree;
}

template <typename NodeType>
NodeType* Tree::newNode() {
    return std::construct_at(static_cast<NodeType*>(_arena.allocate(sizeof(NodeType), alignof(NodeType))));
}

Element* Tree::newElement(std::string_view name, const char* prefix) {
    auto* element = newNode<Element>();
    element->kind = Kind::Element;
    element->name = name.data();
    element->size = static_cast<std::uint32_t>(name.size());
    element->prefix = prefix;
    return element;
}

TextNode* Tree::newText(Kind kind, std::string_view text) {
    auto* node = newNode<TextNode>();
    node->kind = kind;
    node->text = copyOf(text);
    node->size = static_cast<std::uint32_t>(text.size());
    return node;
}

Attribute* Tree::newAttribute(std::string_view name, const char* prefix, std::string_view text, bool isDeclaration) {
    auto* attribute = newNode<Attribute>();
    attribute->name = name.data();
    attribute->nameSize = static_cast<std::uint32_t>(name.size());
    attribute->prefix = prefix;
    attribute->text = copyOf(text);
    attribute->textSize = static_cast<std::uint32_t>(text.size());
    attribute->isDeclaration = isDeclaration;
    return attribute;
}

const char* Tree::copyOf(std::string_view text) {
    if (text.empty())
        return "";
    auto* copy = static_cast<char*>(_arena.allocate(text.size(), 1));
    std::copy(text.begin(), text.end(), copy);
    return copy;
}

void Tree::append(Element* parent, Node* child) noexcept {
    child->parent = parent;
    if (parent->last == nullptr)
        parent->first = child;
    else
        parent->last->next = child;
    parent->last = child;
}

void Tree::insert(Element* parent, Node* child, int position) noexcept {
    Node** link = &parent->first;
    for (; position > 0 && *link != nullptr; --position)
        link = &(*link)->next;
    child->parent = parent;
    child->next = *link;
    if (child->next == nullptr)
        parent->last = child;
    *link = child;
}

void Tree::keepNames(_xmlDict* names) noexcept {
    xmlDictReference(names);
    _names = names;
}

} // namespace brackwater::xmltree
