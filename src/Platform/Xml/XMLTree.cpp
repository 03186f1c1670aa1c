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
    else if (node->kind == Kind::Element)
        text += static_cast<const Element*>(node)->plainText();
    else if (node->kind == Kind::Reference)
        text.append("&").append(asText(node)->view()).append(";");
}

} // namespace

std::string_view textOf(const Element* element, std::string& storage) {
    Node* const first = element->first();
    if (first == nullptr)
        return element->plainText();
    storage.clear();
    for (const Node* node = first; node != nullptr; node = nextBelow(const_cast<Node*>(node), element))
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

const Name* Tree::newName(std::string_view text, const char* prefix) {
    auto* name = newNode<Name>();
    *name = {text.data(), text.size(), prefix};
    return name;
}

Element* Tree::newElement(const Name* name) {
    auto* element = newNode<Element>();
    element->kind = Kind::Element;
    element->name = name;
    return element;
}

TextNode* Tree::newText(Kind kind, std::string_view text) {
    auto* node = newNode<TextNode>();
    node->kind = kind;
    node->text = copyOf(text);
    node->size = static_cast<std::uint32_t>(text.size());
    return node;
}

Attribute* Tree::newAttribute(const Name* name, std::string_view text, bool isDeclaration) {
    void* const place = _arena.allocate(sizeof(Attribute) + text.size(), alignof(Attribute));
    auto* attribute =
        std::construct_at(static_cast<Attribute*>(place),
                          Attribute{name, nullptr, static_cast<std::uint32_t>(text.size()), isDeclaration});
    std::copy(text.begin(), text.end(), static_cast<char*>(place) + sizeof(Attribute));
    return attribute;
}

const char* Tree::copyOf(std::string_view text) {
    if (text.empty())
        return "";
    auto* copy = static_cast<char*>(_arena.allocate(text.size(), 1));
    std::copy(text.begin(), text.end(), copy);
    return copy;
}

TextNode* Tree::unfoldText(Element* element) {
    const std::string_view text = element->plainText();
    if (text.empty())
        return nullptr;
    auto* node = newNode<TextNode>();
    node->kind = Kind::Text;
    node->text = text.data();
    node->size = static_cast<std::uint32_t>(text.size());
    node->parent = element;
    element->setFirst(node);
    return node;
}

void Tree::append(Element* parent, Node* last, Node* child) noexcept {
    child->parent = parent;
    if (last == nullptr)
        parent->setFirst(child);
    else
        last->next = child;
}

void Tree::insert(Element* parent, Node* child, int position) noexcept {
    Node* before = nullptr;
    Node* behind = parent->first();
    for (; position > 0 && behind != nullptr; --position) {
        before = behind;
        behind = behind->next;
    }
    child->next = behind;
    append(parent, before, child);
}

void Tree::keepNames(_xmlDict* names) noexcept {
    xmlDictReference(names);
    _names = names;
}

} // namespace brackwater::xmltree
