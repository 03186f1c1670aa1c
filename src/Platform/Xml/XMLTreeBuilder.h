#pragma once

#include "Platform/Xml/XMLTree.h"

#include <libxml/parser.h>

#include <array>
#include <deque>
#include <memory>
#include <string>
#include <string_view>

/// For the XML sources of this folder.
namespace brackwater::xmltree {

/// Builds a tree from what libxml2's parser calls back with.
///
/// The parser looks at its stack of open nodes to tell blanks that belong to a text from line ends and indents, and
/// takes nodes off it by itself where it repairs a document. So each open element has a stand-in there, which shows
/// what the parser looks at (whether the first and the last child are texts) and leads to the element.
class TreeBuilder {
public:
    /// Texts longer than this are refused, as the library refuses them in trees of its own.
    static constexpr std::size_t kLongestText = 10'000'000;

    explicit TreeBuilder(xmlParserCtxt* context);

    void startElement(const xmlChar* name, const xmlChar* prefix, const xmlChar* uri);
    void addNamespace(const xmlChar* prefix, const xmlChar* uri);
    /// The value as the parser hands it over: as it stands in the text, or, with a NUL behind it, with references.
    void addAttribute(const xmlChar* name, const xmlChar* prefix, std::string_view value);
    void endElement();
    /// False where the text grows too long.
    [[nodiscard]] bool addText(std::string_view text);
    /// Comments, instructions and references.
    void addNode(Kind kind, std::string_view text);

    [[nodiscard]] std::unique_ptr<Tree> takeTree();

private:
    /// An open element, as the parser sees it and as it is.
    struct OpenElement {
        xmlNode standIn;
        Element* element;
        Node* last; ///< below it
    };
    /// Which of a name's parts the parser could tell.
    enum class NameForm : std::uint8_t { Whole, Prefixed, Attribute };
    struct KnownName {
        const xmlChar* text = nullptr;
        const xmlChar* prefix = nullptr;
        NameForm form{};
        const Name* name = nullptr;
    };

    [[nodiscard]] OpenElement& open();
    [[nodiscard]] const Name* nameOf(const xmlChar* text, const xmlChar* prefix, NameForm form);
    void closeText();
    void appendToOpenElement(Node* node);
    void appendTo(OpenElement& open, Node* node);
    void showChild(xmlNode* child);
    void appendAttribute(Attribute* attribute);
    [[nodiscard]] std::string_view withoutReferences(std::string_view value);

    xmlParserCtxt* _context;
    std::unique_ptr<Tree> _tree;
    OpenElement _document{};               // what is open outside the root element
    std::deque<OpenElement> _openElements; // by depth, used again and again
    std::array<KnownName, 256> _names{};   // those used last, by where their texts lie
    xmlNode _anyText{};
    xmlNode _anyElement{};
    std::string _text; // of the open element, behind its last child
    Element* _started = nullptr;
    Attribute* _lastAttribute = nullptr;
    std::string _valueBuffer;
};

} // namespace brackwater::xmltree
