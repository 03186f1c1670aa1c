#pragma once

#include "Platform/Xml/XMLIndex.h"

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <string>
#include <string_view>

struct _xmlDict; // NOLINT: libxml2's own name

/// The tree of a document, for the XML sources of this folder. A node takes a third of the room of libxml2's own, all
/// lie in one arena, and the whole is freed at once: the tree of a large document costs little beside its parsing.
namespace brackwater::xmltree {

enum class Kind : std::uint8_t {
    Document, ///< the one above the root element
    Element,
    Text,
    Comment,
    Instruction, ///< a processing instruction; its text is target and content
    Reference    ///< to an entity that nobody declared; its text is the entity's name
};

struct Element;

struct Node {
    Element* parent;
    Node* next;
    std::uint32_t size; ///< bytes of an element's name, or of the text
    Kind kind;
};

struct TextNode : Node {
    const char* text;

    [[nodiscard]] std::string_view view() const noexcept { return {text, size}; }
};

/// An attribute, or the declaration of a namespace: then `name` is the declared prefix (empty for the default one) and
/// the text its URI.
struct Attribute {
    const char* name;
    const char* prefix; ///< null without one
    const char* text;
    Attribute* next;
    std::uint32_t nameSize;
    std::uint32_t textSize;
    bool isDeclaration;

    [[nodiscard]] std::string_view nameView() const noexcept { return {name, nameSize}; }
    [[nodiscard]] std::string_view view() const noexcept { return {text, textSize}; }
};

struct Element : Node {
    const char* name;
    const char* prefix; ///< of a declared namespace, else null
    Attribute* attributes;
    Node* first;
    Node* last;

    [[nodiscard]] std::string_view nameView() const noexcept { return {name, size}; }
};

[[nodiscard]] inline Element* asElement(Node* node) noexcept { return static_cast<Element*>(node); }
[[nodiscard]] inline TextNode* asText(Node* node) noexcept { return static_cast<TextNode*>(node); }
[[nodiscard]] inline const TextNode* asText(const Node* node) noexcept { return static_cast<const TextNode*>(node); }

/// The first element at or behind `node` among its siblings; null where there is none.
[[nodiscard]] inline Element* elementFrom(Node* node) noexcept {
    while (node != nullptr && node->kind != Kind::Element)
        node = node->next;
    return asElement(node);
}

/// The same for an element of that name.
[[nodiscard]] inline Element* elementNamedFrom(Node* node, std::string_view name) noexcept {
    while (node != nullptr && !(node->kind == Kind::Element && asElement(node)->nameView() == name))
        node = node->next;
    return asElement(node);
}

/// The node behind `node` in document order below `top`, children first.
[[nodiscard]] inline Node* nextBelow(Node* node, const Node* top) noexcept {
    if (node->kind == Kind::Element && asElement(node)->first != nullptr)
        return asElement(node)->first;
    while (node != top && node->next == nullptr)
        node = node->parent;
    return node == top ? nullptr : node->next;
}

/// The attribute of this name and without a prefix; null where there is none.
[[nodiscard]] inline Attribute* attributeOf(const Element* element, std::string_view name) noexcept {
    Attribute* attribute = element->attributes;
    while (attribute != nullptr &&
           (attribute->isDeclaration || attribute->prefix != nullptr || attribute->nameView() != name))
        attribute = attribute->next;
    return attribute;
}

/// Text of the element and all elements below it: a view into the tree where it stands in one piece, otherwise into
/// `storage`. A reference counts as its own text.
[[nodiscard]] std::string_view textOf(const Element* element, std::string& storage);

/// The owner of a tree's nodes.
class Tree {
public:
    Tree();
    ~Tree();
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    /// The tree of a node.
    [[nodiscard]] static Tree& of(const Element* element) noexcept;

    [[nodiscard]] Element* document() noexcept { return &_document; }
    /// Null as long as there is none.
    [[nodiscard]] Element* root() const noexcept { return elementFrom(_document.first); }
    [[nodiscard]] XMLIndex& index() noexcept { return _index; }

    // Makers of nodes that hang nowhere yet. Names and prefixes are not copied and must live as long as the tree.

    [[nodiscard]] Element* newElement(std::string_view name, const char* prefix);
    /// With a copy of the text.
    [[nodiscard]] TextNode* newText(Kind kind, std::string_view text);
    [[nodiscard]] Attribute* newAttribute(std::string_view name, const char* prefix, std::string_view text,
                                          bool isDeclaration);
    /// A copy that lives as long as the tree.
    [[nodiscard]] const char* copyOf(std::string_view text);

    static void append(Element* parent, Node* child) noexcept;
    /// Puts the child in front of the parent's child at `position`, or at the end where there are no more.
    static void insert(Element* parent, Node* child, int position) noexcept;

    /// Shares libxml2's table of names, which holds those of the elements.
    void keepNames(_xmlDict* names) noexcept;

private:
    struct DocumentNode : Element {
        Tree* tree;
    };

    /// A fresh node in the arena, which frees it.
    template <typename NodeType>
    NodeType* newNode();

    std::pmr::monotonic_buffer_resource _arena;
    _xmlDict* _names = nullptr;
    DocumentNode _document{};
    XMLIndex _index;
};

} // namespace brackwater::xmltree
