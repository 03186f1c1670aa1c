#include "Platform/XMLElement.h"

#include "Platform/Exception.h"
#include "Platform/XMLIndex.h"
#include "Platform/XMLNodes.h"

#include <fmt/format.h>
#include <libxml/tree.h>

#include <memory>
#include <new>

namespace brackwater {

using namespace xmlnodes;

namespace {

using Form = XMLQuery::Form;

bool isRoot(const xmlNode* node) { return node->parent != nullptr && node->parent->type == XML_DOCUMENT_NODE; }

XMLIndex& indexOf(const xmlNode* node) { return *static_cast<XMLIndex*>(node->doc->_private); }

// The forms whose value the document's index knows. Below other elements than the root, children are compared.
bool isAnsweredByIndex(const xmlNode* node, const XMLQuery& query) {
    return query.form() == Form::AnyDepthWithParentValue || (query.form() == Form::ChildWithValue && isRoot(node));
}

bool hasAttribute(const xmlNode* element, const XMLQuery& query) {
    const xmlAttr* attribute = attributeOf(element, query.attribute());
    if (attribute == nullptr || query.form() == Form::ChildWithAttribute)
        return attribute != nullptr;
    std::string storage;
    return textOf(attribute->children, storage) == query.value();
}

template <typename Action>
void forEachChildNamed(const xmlNode* parent, std::string_view name, Action action) {
    for (xmlNode* node = elementNamedFrom(parent->children, name); node != nullptr;
         node = elementNamedFrom(node->next, name))
        action(node);
}

template <typename Action>
void forEachAnywhere(const xmlNode* node, const XMLQuery& query, Action action) {
    xmlNode* const root = xmlDocGetRootElement(node->doc);
    for (xmlNode* found = root; found != nullptr; found = nextBelow(found, root))
        if (found->type == XML_ELEMENT_NODE && found != root && isNamed(found->name, query.name()) &&
            isNamed(found->parent->name, query.first()))
            action(found);
}

// Calls `action` with each element that a query finds without the index, in document order.
template <typename Action>
void forEachFound(const xmlNode* node, const XMLQuery& query, Action action) {
    switch (query.form()) {
    case Form::Child:
        forEachChildNamed(node, query.name(), action);
        break;
    case Form::ChildPath:
        forEachChildNamed(node, query.first(),
                          [&](const xmlNode* step) { forEachChildNamed(step, query.name(), action); });
        break;
    case Form::ChildWithAttribute:
    case Form::ChildWithValue:
        forEachChildNamed(node, query.name(), [&](xmlNode* child) {
            if (hasAttribute(child, query))
                action(child);
        });
        break;
    case Form::AnyDepth:
        forEachAnywhere(node, query, action);
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

const xmlChar* chars(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

xmlNode* made(xmlNode* node) {
    if (node == nullptr)
        throw std::bad_alloc();
    return node;
}

void changed(const xmlNode* node) { indexOf(node).clear(); }

struct FreeNode {
    void operator()(xmlNode* node) const { xmlFreeNode(node); }
};

xmlNode* insertAt(xmlNode* parent, xmlNode* child, int index) {
    std::unique_ptr<xmlNode, FreeNode> owner(made(child));
    xmlNode* follower = parent->children;
    int position = 0;
    for (; position < index && follower != nullptr; ++position)
        follower = follower->next;
    if (index < 0 || position < index)
        throw Exception(kRangeException, fmt::format("Index {} is out of the bounds of the children of element '{}'.",
                                                     index, view(parent->name)));
    changed(parent);
    return follower == nullptr ? xmlAddChild(parent, owner.release()) : xmlAddPrevSibling(follower, owner.release());
}

} // namespace

std::string_view XMLElement::name() const noexcept { return view(_node->name); }

std::string XMLElement::stringValue() const {
    std::string storage;
    return std::string(textView(storage));
}

std::string_view XMLElement::textView(std::string& storage) const { return textOf(_node->children, storage); }

std::optional<std::string> XMLElement::attributeForName(std::string_view name) const {
    std::string storage;
    if (const auto text = attributeView(name, storage))
        return std::string(*text);
    return std::nullopt;
}

std::optional<std::string_view> XMLElement::attributeView(std::string_view name, std::string& storage) const {
    const xmlAttr* attribute = attributeOf(_node, name);
    if (attribute == nullptr)
        return std::nullopt;
    return textOf(attribute->children, storage);
}

std::optional<XMLElement> XMLElement::parent() const noexcept {
    if (_node->parent == nullptr || _node->parent->type != XML_ELEMENT_NODE)
        return std::nullopt;
    return XMLElement(_node->parent);
}

std::optional<XMLElement> XMLElement::firstChildElement() const noexcept {
    xmlNode* child = elementFrom(_node->children);
    return child == nullptr ? std::nullopt : std::optional(XMLElement(child));
}

std::optional<XMLElement> XMLElement::nextSiblingElement() const noexcept {
    xmlNode* sibling = elementFrom(_node->next);
    return sibling == nullptr ? std::nullopt : std::optional(XMLElement(sibling));
}

std::string XMLElement::description() const {
    constexpr std::size_t longest = 400;
    std::string text;
    // Taken piece by piece, so that a huge element needs no more memory than the part that is shown.
    const auto keep = [](void* context, const char* bytes, int size) {
        auto& kept = *static_cast<std::string*>(context);
        if (kept.size() < longest)
            kept.append(bytes, static_cast<std::size_t>(size));
        return size;
    };
    xmlOutputBuffer* output = xmlOutputBufferCreateIO(keep, nullptr, &text, nullptr);
    if (output == nullptr)
        return fmt::format("<{}>", name());
    xmlNodeDumpOutput(output, _node->doc, _node, 0, 0, "UTF-8");
    xmlOutputBufferClose(output);
    for (char& byte : text)
        if (byte == '\n' || byte == '\r')
            byte = ' ';
    if (text.size() > longest) {
        std::size_t end = longest;
        while ((static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) // not inside a UTF-8 sequence
            --end;
        text.replace(end, std::string::npos, "...");
    }
    return text;
}

std::vector<std::string> XMLElement::namespaces() const {
    std::vector<std::string> uris;
    for (const xmlNs* declared = _node->nsDef; declared != nullptr; declared = declared->next)
        uris.emplace_back(view(declared->href));
    return uris;
}

std::vector<XMLElement> XMLElement::objectsForXQuery(const XMLQuery& query, Error* error) const {
    tellUnsupported(query, error);
    std::vector<XMLElement> found;
    if (!isAnsweredByIndex(_node, query)) {
        forEachFound(_node, query, [&found](xmlNode* node) { found.emplace_back(node); });
        return found;
    }
    for (xmlNode* node : indexOf(_node).allFound(query))
        found.emplace_back(node);
    return found;
}

XMLElement::LastFound XMLElement::lastObjectForXQuery(const XMLQuery& query, Error* error) const {
    tellUnsupported(query, error);
    LastFound found;
    if (!isAnsweredByIndex(_node, query)) {
        forEachFound(_node, query, [&found](xmlNode* node) {
            ++found.count;
            found.last = XMLElement(node);
        });
        return found;
    }
    const XMLIndex::LastFound indexed = indexOf(_node).lastFound(query);
    found.count = indexed.count;
    if (indexed.last != nullptr)
        found.last = XMLElement(indexed.last);
    return found;
}

void XMLElement::setAttribute(std::string_view name, std::string_view value) {
    changed(_node);
    xmlSetProp(_node, chars(std::string(name)), chars(std::string(value)));
}

XMLElement XMLElement::addChild(std::string_view name) {
    changed(_node);
    return XMLElement(xmlAddChild(_node, made(xmlNewDocNode(_node->doc, nullptr, chars(std::string(name)), nullptr))));
}

XMLElement XMLElement::insertChild(std::string_view name, int index) {
    return XMLElement(insertAt(_node, xmlNewDocNode(_node->doc, nullptr, chars(std::string(name)), nullptr), index));
}

void XMLElement::setStringValue(std::string_view text) {
    changed(_node);
    xmlNode* const replaced = _node->children;
    _node->children = _node->last = nullptr;
    xmlFreeNodeList(replaced);
    if (!text.empty())
        xmlAddChild(_node, made(xmlNewDocText(_node->doc, chars(std::string(text)))));
}

void XMLElement::addComment(std::string_view text) {
    changed(_node);
    xmlAddChild(_node, made(xmlNewDocComment(_node->doc, chars(std::string(text)))));
}

void XMLElement::insertComment(std::string_view text, int index) {
    insertAt(_node, xmlNewDocComment(_node->doc, chars(std::string(text))), index);
}

} // namespace brackwater
