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
std::string_view localName(std::string_view text) {
    const std::size_t colon = text.find(':');
    return colon == std::string_view::npos || colon + 1 == text.size() ? text : text.substr(colon + 1);
}

struct FreeNodes {
    void operator()(xmlNode* first) const { xmlFreeNodeList(first); }
};

} // namespace

TreeBuilder::TreeBuilder(xmlParserCtxt* context) : _context(context), _tree(std::make_unique<Tree>()) {
    _tree->keepNames(context->dict);
    _document.element = _tree->document();
    _anyText.type = XML_TEXT_NODE;
    _anyElement.type = XML_ELEMENT_NODE;
}

void TreeBuilder::startElement(const xmlChar* name, const xmlChar* prefix, const xmlChar* uri) {
    const bool isWhole = prefix == nullptr && uri == nullptr;
    Element* element = _tree->newElement(
        nameOf(name, uri == nullptr ? nullptr : prefix, isWhole ? NameForm::Whole : NameForm::Prefixed));
    appendToOpenElement(element);
    const auto depth = static_cast<std::size_t>(_context->nodeNr);
    while (_openElements.size() <= depth)
        _openElements.emplace_back().standIn.type = XML_ELEMENT_NODE;
    OpenElement& open = _openElements[depth];
    open.element = element;
    open.last = nullptr;
    open.standIn.name = name;
    open.standIn.children = open.standIn.last = nullptr;
    open.standIn._private = &open;
    nodePush(_context, &open.standIn);
    _started = element;
    _lastAttribute = nullptr;
}

void TreeBuilder::addNamespace(const xmlChar* prefix, const xmlChar* uri) {
    appendAttribute(_tree->newAttribute(nameOf(prefix, nullptr, NameForm::Attribute), view(uri), true));
}

void TreeBuilder::addAttribute(const xmlChar* name, const xmlChar* prefix, std::string_view value) {
    // The library gives a value without references as it stands in the document, with the closing quote behind it, and
    // a decoded one as a text of its own, with a zero byte behind it.
    const bool mayHoldReferences = *(value.data() + value.size()) == '\0' && value.find('&') != std::string_view::npos;
    // A name with a prefix, declared or not, is another name than the one behind the colon.
    appendAttribute(_tree->newAttribute(nameOf(name, prefix, NameForm::Attribute),
                                        mayHoldReferences ? withoutReferences(value) : value, false));
}

void TreeBuilder::endElement() {
    closeText();
    nodePop(_context);
}

bool TreeBuilder::addText(std::string_view text) {
    if (_context->node == nullptr)
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

TreeBuilder::OpenElement& TreeBuilder::open() {
    return _context->node == nullptr ? _document : *static_cast<OpenElement*>(_context->node->_private);
}

// The library hands the same name over at the same place each time, so that hardly any is measured or kept twice.
const Name* TreeBuilder::nameOf(const xmlChar* text, const xmlChar* prefix, NameForm form) {
    KnownName& known = _names[(reinterpret_cast<std::uintptr_t>(text) >> 2) % _names.size()];
    if (known.name == nullptr || known.text != text || known.prefix != prefix || known.form != form) {
        const std::string_view whole = view(text);
        known = {text, prefix, form, _tree->newName(form == NameForm::Whole ? localName(whole) : whole, chars(prefix))};
    }
    return known.name;
}

void TreeBuilder::closeText() {
    if (_text.empty())
        return;
    OpenElement& parent = open();
    if (parent.last == nullptr && parent.element->plainText().empty())
        parent.element->setPlainText(_tree->copyOf(_text), static_cast<std::uint32_t>(_text.size()));
    else
        appendTo(parent, _tree->newText(Kind::Text, _text));
    _text.clear();
}

void TreeBuilder::appendToOpenElement(Node* node) {
    if (_context->node == nullptr) {
        appendTo(_document, node);
        return;
    }
    closeText();
    appendTo(open(), node);
    showChild(&_anyElement);
}

void TreeBuilder::appendTo(OpenElement& open, Node* node) {
    if (TextNode* const text = _tree->unfoldText(open.element))
        open.last = text;
    Tree::append(open.element, open.last, node);
    open.last = node;
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
