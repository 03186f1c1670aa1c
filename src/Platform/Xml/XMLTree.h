#pragma once

#include "Platform/Xml/XMLIndex.h"

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <string>
#include <string_view>

struct _xmlDict; // NOLINT: libxml2's own name

/// The tree of a document, for the XML sources of this folder. An element with a text takes a quarter of the room that
/// it takes in libxml2's own trees, all nodes lie in one arena, and the whole is freed at once: the tree of a large
/// document costs little beside its parsing.
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

/// The name of elements or attributes, which share it.
struct Name {
    const char* text;
    std::size_t size;
    const char* prefix; ///< null without one

    [[nodiscard]] std::string_view view() const noexcept { return {text, size}; }
};

struct Node {
    Element* parent;
    Node* next;
    std::uint32_t size; ///< bytes of the text
    Kind kind;
};

struct TextNode : Node {
    const char* text;

    [[nodiscard]] std::string_view view() const noexcept { return {text, size}; }
};

/// An attribute, or the declaration of a namespace: then the name is the declared prefix (empty for the default one)
/// and the text its URI.
struct Attribute {
    const Name* name;
    Attribute* next;
    std::uint32_t size; ///< bytes of the text, which stands behind the object
    bool isDeclaration;

    [[nodiscard]] std::string_view nameView() const noexcept { return name->view(); }
    [[nodiscard]] std::string_view view() const noexcept { return {reinterpret_cast<const char*>(this + 1), size}; }
};

/// Most elements hold one text and nothing else. It needs no node of its own.
struct Element : Node {
    const Name* name; ///< its prefix is that of a declared namespace
    Attribute* attributes;

    [[nodiscard]] std::string_view nameView() const noexcept { return name->view(); }
    /// The first node below the element; null where there is none, or a plain text.
    [[nodiscard]] Node* first() const noexcept { return size == 0 ? content.first : nullptr; }
    /// The text that is all the element holds; empty where it holds nothing or has nodes below.
    [[nodiscard]] std::string_view plainText() const noexcept {
        return size == 0 ? std::string_view() : std::string_view(content.text, size);
    }
    void setFirst(Node* node) noexcept {
        size = 0;
        content.first = node;
    }
    void setPlainText(const char* text, std::uint32_t bytes) noexcept {
        size = bytes;
        content.text = text;
    }

private:
    union {
        Node* first = nullptr;
        const char* text; ///< where the size is not 0
    } content;
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
    if (node->kind == Kind::Element && asElement(node)->first() != nullptr)
        return asElement(node)->first();
    while (node != top && node->next == nullptr)
        node = node->parent;
    return node == top ? nullptr : node->next;
}

/// The attribute of this name and without a prefix; null where there is none.
[[nodiscard]] inline Attribute* attributeOf(const Element* element, std::string_view name) noexcept {
    Attribute* attribute = element->attributes;
    while (attribute != nullptr &&
           (attribute->isDeclaration || attribute->name->prefix != nullptr || attribute->nameView() != name))
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
    [[nodiscard]] Element* root() const noexcept { return elementFrom(_document.first()); }
    [[nodiscard]] XMLIndex& index() noexcept { return _index; }

    // Makers of names, and of nodes that hang nowhere yet. The texts of names and prefixes are not copied and must live
    // as long as the tree.

    [[nodiscard]] const Name* newName(std::string_view text, const char* prefix);
    [[nodiscard]] Element* newElement(const Name* name);
    /// With a copy of the text.
    [[nodiscard]] TextNode* newText(Kind kind, std::string_view text);
    [[nodiscard]] Attribute* newAttribute(const Name* name, std::string_view text, bool isDeclaration);
    /// A copy that lives as long as the tree.
    [[nodiscard]] const char* copyOf(std::string_view text);

    /// Gives the plain text of an element, if it has one, a node of its own, and returns that.
    TextNode* unfoldText(Element* element);
    /// Puts the child behind the parent's last one; null where that has none.
    static void append(Element* parent, Node* last, Node* child) noexcept;
    /// Puts the child in front of the parent's child at `position`, or at the end where there are no more. The parent
    /// must hold no plain text.
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
