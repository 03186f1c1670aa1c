#include "Platform/XMLParser.h"

#include "Platform/Log.h"
#include "Platform/XMLNodes.h"

#include <fmt/format.h>
#include <glib.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

#include <limits>
#include <memory>
#include <optional>

namespace brackwater {

using namespace xmlnodes;

namespace {

// No entity is replaced, no DTD loaded and nothing fetched; the library's limits stay on. CDATA becomes plain text.
constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_RECOVER | XML_PARSE_NOCDATA | XML_PARSE_NOBLANKS |
                         XML_PARSE_COMPACT | XML_PARSE_BIG_LINES;

struct FreeContext {
    void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};
using ContextOwner = std::unique_ptr<xmlParserCtxt, FreeContext>;

struct FreeTree {
    void operator()(xmlDoc* tree) const { xmlFreeDoc(tree); }
};
using TreeOwner = std::unique_ptr<xmlDoc, FreeTree>;

// A prefix that no namespace was declared for stays part of the name in the library's tree; names here are local ones.
const xmlChar* withoutPrefix(const xmlChar* name) {
    const xmlChar* colon = xmlStrchr(name, ':');
    return colon == nullptr || colon[1] == '\0' ? name : colon + 1;
}

void dropUndeclaredPrefixes(xmlNode* root) {
    xmlDict* names = root->doc->dict; // holds the names of a tree that was read, for as long as the tree lives
    for (xmlNode* node = root; node != nullptr; node = nextBelow(node, root)) {
        if (node->type != XML_ELEMENT_NODE)
            continue;
        if (node->ns == nullptr)
            node->name = xmlDictLookup(names, withoutPrefix(node->name), -1);
        for (xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next)
            if (attribute->ns == nullptr)
                attribute->name = xmlDictLookup(names, withoutPrefix(attribute->name), -1);
    }
}

std::string oneLine(const char* message) {
    std::string text(message == nullptr ? "" : message);
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    for (char& byte : text)
        if (byte == '\n' || byte == '\r')
            byte = ' ';
    return text;
}

// One reading. The library calls back with its context, whose private field leads here.
class Reading {
public:
    /// Faults that an earlier reading of the same text has logged already are not logged again.
    explicit Reading(std::string_view name, std::size_t loggedBefore = 0) : _name(name), _loggedBefore(loggedBefore) {}

    xmlDoc* read(std::string text, std::string& reason);
    /// True when the text should be UTF-8 and was found not to be: the library falls back to Latin-1 at such a byte.
    [[nodiscard]] bool metForeignBytes() const {
        return _context != nullptr && _context->charset == XML_CHAR_ENCODING_8859_1 && !isConverted();
    }
    [[nodiscard]] std::size_t faults() const { return _faults; }

private:
    static Reading& of(void* context) { return *static_cast<Reading*>(static_cast<xmlParserCtxt*>(context)->_private); }

    bool openContext(const std::string& text);
    void setCallbacks();
    void refuse(std::string_view why);
    void report(const xmlError& fault);
    [[nodiscard]] std::optional<std::string> whyRefused(const xmlNode* root) const;
    [[nodiscard]] bool hasMarkupBehindRoot() const;
    /// True when the text is in another encoding than UTF-8, which the library converts on its way.
    [[nodiscard]] bool isConverted() const {
        const xmlParserInput* input = _context->input;
        return input != nullptr && input->buf != nullptr && input->buf->encoder != nullptr;
    }
    [[nodiscard]] bool isAtEnd() const {
        const xmlParserInput* input = _context->input;
        return input == nullptr || input->cur >= input->end;
    }
    [[nodiscard]] std::string withLastFault(std::string_view why) const;

    static void onFault(void* context, xmlError* fault) {
        if (fault != nullptr)
            of(context).report(*fault);
    }
    static void onBlanks(void* context, const xmlChar* blanks, int length);
    static void onEntity(void* context, const xmlChar*, int, const xmlChar*, const xmlChar*, xmlChar*) {
        of(context).refuse("it declares entities");
    }
    static void onUnparsedEntity(void* context, const xmlChar*, const xmlChar*, const xmlChar*, const xmlChar*) {
        of(context).refuse("it declares entities");
    }
    static void onAttributeDeclaration(void* context, const xmlChar*, const xmlChar*, int, int,
                                       const xmlChar* defaultValue, xmlEnumeration* values) {
        xmlFreeEnumeration(values);
        if (defaultValue != nullptr)
            of(context).refuse("it declares default values of attributes");
    }

    std::string_view _name;
    std::size_t _loggedBefore;
    std::size_t _faults = 0;
    bool _endsTooEarly = false; // a fault was met where the text ends: inside a tag, a comment, or with elements open
    ContextOwner _context;
    std::string _refusal;
    std::string _lastFault;
};

xmlDoc* Reading::read(std::string text, std::string& reason) {
    if (text.empty()) {
        reason = fmt::format("'{}' could not be read: it is empty", _name);
        return nullptr;
    }
    if (!openContext(text)) {
        reason = fmt::format("'{}' could not be read: there is not enough memory for it", _name);
        return nullptr;
    }
    std::string().swap(text); // the library has its own copy
    xmlParseDocument(_context.get());
    TreeOwner tree(_context->myDoc);
    _context->myDoc = nullptr;
    xmlNode* root = tree == nullptr ? nullptr : xmlDocGetRootElement(tree.get());
    if (const auto why = whyRefused(root)) {
        reason = fmt::format("'{}' could not be read: {}", _name, *why);
        return nullptr;
    }
    if (_context->nsWellFormed == 0)
        dropUndeclaredPrefixes(root);
    return tree.release();
}

bool Reading::openContext(const std::string& text) {
    _context.reset(xmlCreateMemoryParserCtxt(text.data(), static_cast<int>(text.size())));
    if (_context == nullptr)
        return false;
    _context->_private = this;
    xmlCtxtUseOptions(_context.get(), kOptions);
    setCallbacks();
    return true;
}

void Reading::setCallbacks() {
    xmlSAXHandler& callbacks = *_context->sax;
    callbacks.serror = onFault;
    callbacks.ignorableWhitespace = onBlanks;
    callbacks.entityDecl = onEntity;
    callbacks.unparsedEntityDecl = onUnparsedEntity;
    callbacks.attributeDecl = onAttributeDeclaration;
    callbacks.elementDecl = nullptr;
    callbacks.notationDecl = nullptr;
    callbacks.externalSubset = nullptr;
}

void Reading::refuse(std::string_view why) {
    if (_refusal.empty())
        _refusal = why;
    xmlStopParser(_context.get());
}

// Blanks between elements are most of a printed document's nodes and nobody's text. Only line ends with their indents
// in front of a tag are left out; a single blank between inline elements stays, and so does what stands before a
// comment or a CDATA section, which may belong to a text.
void Reading::onBlanks(void* context, const xmlChar* blanks, int length) {
    const std::string_view text(reinterpret_cast<const char*>(blanks), static_cast<std::size_t>(length));
    const xmlChar* next = static_cast<xmlParserCtxt*>(context)->input->cur;
    const bool beforeTag = next[0] == '<' && next[1] != '!' && next[1] != '?';
    if (!beforeTag || text.find('\n') == std::string_view::npos)
        xmlSAX2Characters(context, blanks, length);
}

void Reading::report(const xmlError& fault) {
    if (!_refusal.empty())
        return;
    // A warning repairs nothing, but a reference to an entity that nobody declared stays in the text as it stands.
    if (fault.level == XML_ERR_WARNING && fault.code != XML_WAR_UNDECLARED_ENTITY)
        return;
    _lastFault = fmt::format("line {}: {}", fault.line, oneLine(fault.message));
    if (fault.level == XML_ERR_FATAL && isAtEnd())
        _endsTooEarly = true;
    if (++_faults > _loggedBefore)
        logLine("WARNING: '{}', {}", _name, _lastFault);
}

std::optional<std::string> Reading::whyRefused(const xmlNode* root) const {
    if (!_refusal.empty())
        return _refusal;
    if (_context->disableSAX != 0)
        return withLastFault("the reading stopped");
    if (root == nullptr)
        return withLastFault("it has no root element");
    if (_endsTooEarly || _context->nameNr > 0)
        return withLastFault("it ends too early");
    if (hasMarkupBehindRoot())
        return withLastFault("markup stands behind the end of its root element");
    return std::nullopt;
}

// What stands behind the root is lost. A stray byte may be, elements may not: one end tag too many closes the root.
bool Reading::hasMarkupBehindRoot() const {
    if (isAtEnd())
        return false;
    const xmlParserInput* input = _context->input;
    const std::string_view rest(reinterpret_cast<const char*>(input->cur),
                                static_cast<std::size_t>(input->end - input->cur));
    return rest.find('<') != std::string_view::npos || isConverted();
}

std::string Reading::withLastFault(std::string_view why) const {
    return _lastFault.empty() ? std::string(why) : fmt::format("{} ({})", why, _lastFault);
}

// The text with each byte that is no part of a UTF-8 sequence read as Latin-1, the likeliest of what it may be.
std::string withForeignBytesConverted(std::string_view text) {
    std::string repaired;
    repaired.reserve(text.size() + text.size() / 8);
    while (!text.empty()) {
        const char* end = nullptr;
        g_utf8_validate_len(text.data(), text.size(), &end);
        const auto valid = static_cast<std::size_t>(end - text.data());
        repaired.append(text, 0, valid);
        text.remove_prefix(valid);
        if (text.empty())
            break;
        const auto byte = static_cast<unsigned char>(text.front());
        if (byte < 0x80) // NUL, which the validation takes for an end
            repaired += text.front();
        else
            repaired.append({static_cast<char>(0xC0 | (byte >> 6)), static_cast<char>(0x80 | (byte & 0x3F))});
        text.remove_prefix(1);
    }
    return repaired;
}

void tellNothing(void*, xmlError*) {}

void printNothing(void*, const char*, ...) {}

xmlParserInput* loadNothing(const char*, const char*, xmlParserCtxt*) { return nullptr; }

} // namespace

_xmlDoc* parseXML(const XMLText& text, std::string_view name, std::string& reason) {
    prepareXMLLibrary();
    const auto fetch = [&](std::string& fetched) {
        std::string fault;
        std::optional<std::string> got = text(fault);
        if (got && got->size() > kLargestXMLText)
            fault = "it is larger than 2 GB";
        else if (got)
            fetched = *std::move(got);
        if (!fault.empty())
            reason = fmt::format("'{}' could not be read: {}", name, fault);
        return fault.empty();
    };
    std::string bytes;
    if (!fetch(bytes))
        return nullptr;
    Reading reading(name);
    TreeOwner tree(reading.read(std::move(bytes), reason));
    if (!reading.metForeignBytes())
        return tree.release();
    tree.reset();
    if (!fetch(bytes))
        return nullptr;
    return Reading(name, reading.faults()).read(withForeignBytesConverted(bytes), reason);
}

void prepareXMLLibrary() {
    [[maybe_unused]] static const bool ready = [] {
        xmlInitParser();
        xmlSetExternalEntityLoader(loadNothing);
        xmlSetGenericErrorFunc(nullptr, printNothing);
        xmlSetStructuredErrorFunc(nullptr, tellNothing);
        return true;
    }();
}

} // namespace brackwater
