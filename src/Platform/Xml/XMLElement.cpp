#include "Platform/Xml/XMLElement.h"

#include "Platform/Values/Exception.h"
#include "Platform/Xml/XMLDescription.h"
#include "Platform/Xml/XMLPrinter.h"
#include "Platform/Xml/XMLTree.h"

#include <fmt/format.h>

#include <cstdint>
#include <limits>
#include <memory>

namespace brackwater {

using namespace xmltree;

namespace {

using Form = XMLQuery::Form;

constexpr std::size_t kLongestDescription = 400;

bool isRoot(const Element* element) { return element->parent != nullptr && element->parent->kind == Kind::Document; }

// The forms whose value the document's index knows. Below other elements than the root, children are compared.
bool isAnsweredByIndex(const Element* element, const XMLQuery& query) {
    return query.form() == Form::AnyDepthWithParentValue || (query.form() == Form::ChildWithValue && isRoot(element));
}

bool hasAttribute(const Element* element, const XMLQuery& query) {
    const Attribute* attribute = attributeOf(element, query.attribute());
    if (attribute == nullptr || query.form() == Form::ChildWithAttribute)
        return attribute != nullptr;
    return attribute->view() == query.value();
}

template <typename Action>
void forEachChildNamed(const Element* parent, std::string_view name, Action action) {
    for (Element* child = elementNamedFrom(parent->first(), name); child != nullptr;
         child = elementNamedFrom(child->next, name))
        action(child);
}

template <typename Action>
void forEachAnywhere(const Element* element, const XMLQuery& query, Action action) {
    Element* const root = Tree::of(element).root();
    for (Node* node = root; node != nullptr; node = nextBelow(node, root))
        if (node->kind == Kind::Element && node != root && asElement(node)->nameView() == query.name() &&
            node->parent->nameView() == query.first())
            action(asElement(node));
}

// Calls `action` with each element that a query finds without the index, in document order.
template <typename Action>
void forEachFound(const Element* element, const XMLQuery& query, Action action) {
    switch (query.form()) {
    case Form::Child:
        forEachChildNamed(element, query.name(), action);
        break;
    case Form::ChildPath:
        forEachChildNamed(element, query.first(),
                          [&](const Element* step) { forEachChildNamed(step, query.name(), action); });
        break;
    case Form::ChildWithAttribute:
    case Form::ChildWithValue:
        forEachChildNamed(element, query.name(), [&](Element* child) {
            if (hasAttribute(child, query))
                action(child);
        });
        break;
    case Form::AnyDepth:
        forEachAnywhere(element, query, action);
        break;
    case Form::AnyDepthWithParentValue:
    case Form::Unsupported:
        break;
    }
}

void tellUnsupported(const XMLQuery& query, Error* error) {
    if (error != nullptr && query.form() == Form::Unsupported)
        *error = notPortedXQueryError(__FILE__, __LINE__, query.text());
}

void changed(const Element* element) { Tree::of(element).index().clear(); }

const Name* keptName(Tree& tree, std::string_view name) {
    return tree.newName({tree.copyOf(name), name.size()}, nullptr);
}

void addAtEnd(Tree& tree, Element* parent, Node* child) {
    tree.unfoldText(parent);
    Tree::insert(parent, child, std::numeric_limits<int>::max());
}

int countOfChildren(const Element* parent) {
    int count = 0;
    for (const Node* child = parent->first(); child != nullptr; child = child->next)
        ++count;
    return count;
}

void checkIndex(const Element* parent, int index) {
    if (index < 0 || index > countOfChildren(parent))
        throw Exception(kRangeException, fmt::format("Index {} is out of the bounds of the children of element '{}'.",
                                                     index, parent->nameView()));
}

} // namespace

std::string_view XMLElement::name() const noexcept { return _node->nameView(); }

std::string XMLElement::stringValue() const {
    std::string storage;
    return std::string(textView(storage));
}

std::string_view XMLElement::textView(std::string& storage) const { return textOf(_node, storage); }

std::optional<std::string> XMLElement::attributeForName(std::string_view name) const {
    const auto text = attributeView(name);
    return text ? std::optional<std::string>(std::in_place, *text) : std::nullopt;
}

std::optional<std::string_view> XMLElement::attributeView(std::string_view name) const noexcept {
    const Attribute* attribute = attributeOf(_node, name);
    return attribute == nullptr ? std::nullopt : std::optional(attribute->view());
}

std::optional<XMLElement> XMLElement::parent() const noexcept {
    if (_node->parent == nullptr || _node->parent->kind != Kind::Element)
        return std::nullopt;
    return XMLElement(_node->parent);
}

std::optional<XMLElement> XMLElement::firstChildElement() const noexcept {
    Element* child = elementFrom(_node->first());
    return child == nullptr ? std::nullopt : std::optional(XMLElement(child));
}

std::optional<XMLElement> XMLElement::nextSiblingElement() const noexcept {
    Element* sibling = elementFrom(_node->next);
    return sibling == nullptr ? std::nullopt : std::optional(XMLElement(sibling));
}

std::string XMLElement::description() const { return beginningOf(_node, kLongestDescription); }

std::optional<std::string> descriptionOfAttribute(XMLElement element, std::string_view name) {
    const Attribute* attribute = attributeOf(element.node(), name);
    return attribute == nullptr ? std::nullopt : std::optional(beginningOf(attribute, kLongestDescription));
}

std::vector<std::string> XMLElement::namespaces() const {
    std::vector<std::string> uris;
    for (const Attribute* declared = _node->attributes; declared != nullptr; declared = declared->next)
        if (declared->isDeclaration)
            uris.emplace_back(declared->view());
    return uris;
}

std::vector<XMLElement> XMLElement::objectsForXQuery(const XMLQuery& query, Error* error) const {
    tellUnsupported(query, error);
    std::vector<XMLElement> found;
    if (!isAnsweredByIndex(_node, query)) {
        forEachFound(_node, query, [&found](Element* element) { found.emplace_back(element); });
        return found;
    }
    for (Element* element : Tree::of(_node).index().allFound(query))
        found.emplace_back(element);
    return found;
}

XMLElement::LastFound XMLElement::lastObjectForXQuery(const XMLQuery& query, Error* error) const {
    tellUnsupported(query, error);
    LastFound found;
    if (!isAnsweredByIndex(_node, query)) {
        forEachFound(_node, query, [&found](Element* element) {
            ++found.count;
            found.last = XMLElement(element);
        });
        return found;
    }
    const XMLIndex::LastFound indexed = Tree::of(_node).index().lastFound(query);
    found.count = indexed.count;
    if (indexed.last != nullptr)
        found.last = XMLElement(indexed.last);
    return found;
}

void XMLElement::setAttribute(std::string_view name, std::string_view value) {
    changed(_node);
    Tree& tree = Tree::of(_node);
    Attribute** place = &_node->attributes;
    const Attribute* const present = attributeOf(_node, name);
    while (*place != present && *place != nullptr)
        place = &(*place)->next;
    Attribute* const attribute =
        tree.newAttribute(present == nullptr ? keptName(tree, name) : present->name, value, false);
    if (present != nullptr)
        attribute->next = present->next;
    *place = attribute;
}

XMLElement XMLElement::addChild(std::string_view name) {
    changed(_node);
    Tree& tree = Tree::of(_node);
    Element* child = tree.newElement(keptName(tree, name));
    addAtEnd(tree, _node, child);
    return XMLElement(child);
}

XMLElement XMLElement::insertChild(std::string_view name, int index) {
    changed(_node);
    Tree& tree = Tree::of(_node);
    tree.unfoldText(_node);
    checkIndex(_node, index);
    Element* child = tree.newElement(keptName(tree, name));
    Tree::insert(_node, child, index);
    return XMLElement(child);
}

void XMLElement::setStringValue(std::string_view text) {
    changed(_node);
    _node->setFirst(nullptr);
    if (!text.empty())
        _node->setPlainText(Tree::of(_node).copyOf(text), static_cast<std::uint32_t>(text.size()));
}

void XMLElement::addComment(std::string_view text) {
    changed(_node);
    Tree& tree = Tree::of(_node);
    addAtEnd(tree, _node, tree.newText(Kind::Comment, text));
}

void XMLElement::insertComment(std::string_view text, int index) {
    changed(_node);
    Tree& tree = Tree::of(_node);
    tree.unfoldText(_node);
    checkIndex(_node, index);
    Tree::insert(_node, tree.newText(Kind::Comment, text), index);
}

} // namespace brackwater
