#include "Platform/Xml/XMLPrinter.h"

#include "Platform/Xml/XMLParser.h"

#include <fmt/format.h>
#include <libxml/tree.h>

#include <limits>
#include <memory>
#include <new>

namespace brackwater::xmltree {

namespace {

struct FreeTree {
    void operator()(xmlDoc* tree) const { xmlFreeDoc(tree); }
};

const xmlChar* chars(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

std::string qualified(const Name& name) {
    return name.prefix == nullptr ? std::string(name.view()) : fmt::format("{}:{}", name.prefix, name.view());
}

// The library's own tree of a part of ours, to be printed by it.
class LibraryTree {
public:
    LibraryTree() {
        prepareXMLLibrary();
        _document.reset(xmlNewDoc(chars("1.0")));
        if (_document == nullptr)
            throw std::bad_alloc();
        // Without an encoding, the library prints letters beyond ASCII as references.
        _document->encoding = xmlStrdup(chars("UTF-8"));
    }

    [[nodiscard]] xmlDoc* document() const { return _document.get(); }

    /// Copies `top` with at most so many of the nodes below it, in document order.
    void copy(Node* top, std::size_t most) {
        xmlNode* parent = reinterpret_cast<xmlNode*>(_document.get());
        const Node* above = top->parent;
        for (Node* node = top; node != nullptr && most > 0; node = nextBelow(node, top), --most) {
            for (; above != node->parent; above = above->parent)
                parent = parent->parent;
            xmlNode* copied = xmlAddChild(parent, copyOf(node));
            if (node->kind == Kind::Element && asElement(node)->first() != nullptr) {
                parent = copied;
                above = node;
            }
        }
    }

private:
    xmlNode* copyOf(Node* node) {
        xmlNode* copied = node->kind == Kind::Element ? copyOfElement(asElement(node))
                                                      : newText(node->kind, std::string(asText(node)->view()));
        if (copied == nullptr)
            throw std::bad_alloc();
        return copied;
    }

    xmlNode* copyOfElement(const Element* element) const {
        xmlNode* copied = xmlNewDocNode(document(), nullptr, chars(qualified(*element->name)), nullptr);
        if (copied == nullptr)
            return nullptr;
        for (const Attribute* attribute = element->attributes; attribute != nullptr; attribute = attribute->next) {
            const std::string text(attribute->view());
            if (attribute->isDeclaration)
                xmlNewNs(copied, chars(text),
                         attribute->nameView().empty() ? nullptr : chars(std::string(attribute->nameView())));
            else
                xmlNewProp(copied, chars(qualified(*attribute->name)), chars(text));
        }
        if (const std::string_view text = element->plainText(); !text.empty())
            xmlAddChild(copied, newText(Kind::Text, std::string(text)));
        return copied;
    }

    xmlNode* newText(Kind kind, const std::string& text) const {
        switch (kind) {
        case Kind::Comment:
            return xmlNewDocComment(document(), chars(text));
        case Kind::Instruction:
            return xmlNewDocPI(document(), chars(text), nullptr);
        case Kind::Reference:
            return xmlNewReference(document(), chars(text));
        default:
            return xmlNewDocText(document(), chars(text));
        }
    }

    std::unique_ptr<xmlDoc, FreeTree> _document;
};

std::string printedRoot(const LibraryTree& tree) {
    std::string text;
    const auto keep = [](void* context, const char* bytes, int size) {
        static_cast<std::string*>(context)->append(bytes, static_cast<std::size_t>(size));
        return size;
    };
    xmlOutputBuffer* output = xmlOutputBufferCreateIO(keep, nullptr, &text, nullptr);
    if (output == nullptr)
        throw std::bad_alloc();
    xmlNodeDumpOutput(output, tree.document(), xmlDocGetRootElement(tree.document()), 0, 0, "UTF-8");
    xmlOutputBufferClose(output);
    return text;
}

std::string oneLine(std::string text, std::size_t longest) {
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

} // namespace

std::string beginningOf(const Element* element, std::size_t longest) {
    LibraryTree tree;
    // Each node prints at least one byte.
    tree.copy(const_cast<Element*>(element), longest + 1);
    return oneLine(printedRoot(tree), longest);
}

std::string beginningOf(const Attribute* attribute, std::size_t longest) {
    LibraryTree tree;
    Tree bearing;
    Element* const bearer = bearing.newElement(bearing.newName("a", nullptr));
    bearer->attributes = bearing.newAttribute(attribute->name, attribute->view(), attribute->isDeclaration);
    tree.copy(bearer, 1);
    constexpr std::string_view kBefore = "<a ", kBehind = "/>";
    const std::string text = printedRoot(tree);
    return oneLine(text.substr(kBefore.size(), text.size() - kBefore.size() - kBehind.size()), longest);
}

std::string printed(Tree& tree) {
    constexpr int indented = 1;
    LibraryTree copied;
    for (Node* node = tree.document()->first(); node != nullptr; node = node->next)
        copied.copy(node, std::numeric_limits<std::size_t>::max());
    xmlChar* bytes = nullptr;
    int size = 0;
    xmlDocDumpFormatMemoryEnc(copied.document(), &bytes, &size, "UTF-8", indented);
    if (bytes == nullptr)
        return {};
    std::string text(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    xmlFree(bytes);
    return text;
}

} // namespace brackwater::xmltree
