#include "Platform/Xml/XMLTreeBuilder.h"

#include <libxml/parserInternals.h>

namespace brackwater::xmltree {

namespace {

std::string_view view(const xmlChar* text) {
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

const char* chars(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

// Names are local ones. A prefix that no namespace was declared for is dropped; where the parser could not split the
// name, it is still part of it.
std::string_view localName(const xmlChar* name, const xmlChar* prefix, const xmlChar* uri) {
    const std::string_view text = view(name);
    if (prefix != nullptr || uri != nullptr)
        return text;
    const std::size_t colon = text.find(':');
    return colon == std::string_view::npos || colon + 1 == text.size() ? text : text.substr(colon + 1);
}

const char* declaredPrefix(const xmlChar* prefix, const xmlChar* uri) {
    return uri == nullptr ? nullptr : chars(prefix);
}

struct FreeNodes {
    void operator()(xmlNode* first) const { xmlFreeNodeList(first); }
};

} // namespace

TreeBuilder::TreeBuilder(xmlParserCtxt* context) : _context(context), _tree(std::make_unique<Tree>()) {
    _tree->keepNames(context->dict);
    _anyText.type = XML_TEXT_NODE;
    _anyElement.type = XML_ELEMENT_NODE;
}

void TreeBuilder::startElement(const xmlChar* name, const xmlChar* prefix, const xmlChar* uri) {
    Element* element = _tree->newElement(localName(name, prefix, uri), declaredPrefix(prefix, uri));
    appendToOpenElement(element);
    const auto depth = static_cast<std::size_t>(_context->nodeNr);
    while (_standIns.size() <= depth)
        _standIns.emplace_back();
    xmlNode& standIn = _standIns[depth];
    standIn = xmlNode{};
    standIn.type = XML_ELEMENT_NODE;
    standIn.name = name;
    standIn._private = element;
    nodePush(_context, &standIn);
    _started = element;
    _lastAttribute = nullptr;
}

void TreeBuilder::addNamespace(const xmlChar* prefix, const xmlChar* uri) {
    appendAttribute(_tree->newAttribute(view(prefix), nullptr, view(uri), true));
}

void TreeBuilder::addAttribute(const xmlChar* name, const xmlChar* prefix, std::string_view value) {
    // The library gives a value without references as it stands in the document, with the closing quote behind it, and
    // a decoded one as a text of its own, with a zero byte behind it.
    const bool mayHoldReferences = *(value.data() + value.size()) == '\0' && value.find('&') != std::string_view::npos;
    // A name with a prefix, declared or not, is another name than the one behind the colon.
    appendAttribute(
        _tree->newAttribute(view(name), chars(prefix), mayHoldReferences ? withoutReferences(value) : value, false));
}

void TreeBuilder::endElement() {
    closeText();
    nodePop(_context);
}

bool TreeBuilder::addText(std::string_view text) {
    if (openElement() == nullptr)
        return true;
    if (_text.empty())
        showChild(&_anyText);
    else if (_text.size() + text.size() > kLongestText)
        return false;
    _text += text;
    return true;
}

void TreeBuilder::addNode(Kind kind, std::string_view text) { appendToOpenElement(_tree->newText(kind, text)); }

std::unique_ptr<Tree> TreeBuilder::takeTree() { return std::move(_tree); }

Element* TreeBuilder::openElement() const {
    return _context->node == nullptr ? nullptr : static_cast<Element*>(_context->node->_private);
}

void TreeBuilder::closeText() {
    if (_text.empty())
        return;
    Tree::append(openElement(), _tree->newText(Kind::Text, _text));
    _text.clear();
}

void TreeBuilder::appendToOpenElement(Node* node) {
    Element* parent = openElement();
    if (parent == nullptr) {
        Tree::append(_tree->document(), node);
        return;
    }
    closeText();
    Tree::append(parent, node);
    showChild(&_anyElement);
}

void TreeBuilder::showChild(xmlNode* child) {
    xmlNode* standIn = _context->node;
    if (standIn->children == nullptr)
        standIn->children = child;
    standIn->last = child;
}

void TreeBuilder::appendAttribute(Attribute* attribute) {
    if (_lastAttribute == nullptr)
        _started->attributes = attribute;
    else
        _lastAttribute->next = attribute;
    _lastAttribute = attribute;
}

std::string_view TreeBuilder::withoutReferences(std::string_view value) {
    const std::unique_ptr<xmlNode, FreeNodes> nodes(xmlStringLenGetNodeList(
        _context->myDoc, reinterpret_cast<const xmlChar*>(value.data()), static_cast<int>(value.size())));
    _valueBuffer.clear();
    for (const xmlNode* node = nodes.get(); node != nullptr; node = node->next) {
        if (node->type == XML_ENTITY_REF_NODE)
            _valueBuffer.append("&").append(view(node->name)).append(";");
        else
            _valueBuffer += view(node->content);
    }
    return _valueBuffer;
}

} // namespace brackwater::xmltree
