#include "Platform/Xml/XMLParser.h"

#include "Platform/Log/Log.h"
#include "Platform/Xml/XMLSource.h"
#include "Platform/Xml/XMLTreeBuilder.h"

#include <fmt/format.h>
#include <glib.h>
#include <libxml/SAX2.h>
#include <libxml/dict.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlmemory.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <span>

namespace brackwater {

using namespace xmltree;

namespace {

// No entity is replaced, no DTD loaded and nothing fetched; the library's limits stay on. CDATA becomes plain text.
constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_RECOVER | XML_PARSE_NOCDATA | XML_PARSE_NOBLANKS |
                         XML_PARSE_COMPACT | XML_PARSE_BIG_LINES;

constexpr std::size_t kMostAttributes = 1000;
constexpr std::size_t kMostNamespaces = 500;
constexpr int kMostNames = 20'000;
constexpr std::size_t kMostFaultsLogged = 100;

struct FreeContext {
    // The document is still the context's where an exception ended the parsing.
    void operator()(xmlParserCtxt* context) const {
        xmlFreeDoc(context->myDoc);
        xmlFreeParserCtxt(context);
    }
};
using ContextOwner = std::unique_ptr<xmlParserCtxt, FreeContext>;

std::string_view view(const xmlChar* text, int length) {
    return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)};
}

std::string_view view(const xmlChar* text) {
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
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

    std::unique_ptr<Tree> read(XMLSource& source, std::string& reason);
    /// True when the text should be UTF-8 and was found not to be: the library falls back to Latin-1 at such a byte.
    [[nodiscard]] bool metForeignBytes() const {
        return _context != nullptr && _context->charset == XML_CHAR_ENCODING_8859_1 && !isConverted();
    }
    [[nodiscard]] std::size_t faults() const { return _faults; }
    /// What the library gets memory anew with; to be set before anything else of it is used.
    static void* reallocate(void* block, std::size_t size);

private:
    static Reading& of(void* context) { return *static_cast<Reading*>(static_cast<xmlParserCtxt*>(context)->_private); }

    void refuseLongText();
    [[nodiscard]] bool isTableBeyondBounds(const void* table, std::size_t size);
    bool openContext();
    void setCallbacks();
    void refuse(std::string_view why);
    void refuseManyNames();
    void report(const xmlError& fault);
    [[nodiscard]] std::optional<std::string> whyRefused(const Element* root);
    [[nodiscard]] bool hasMarkupBehindRoot();
    [[nodiscard]] std::size_t readPiece(std::span<char> bytes);
    /// True when the text is in another encoding than UTF-8, which the library converts on its way.
    [[nodiscard]] bool isConverted() const {
        const xmlParserInput* input = _context->input;
        return input != nullptr && input->buf != nullptr && input->buf->encoder != nullptr;
    }
    [[nodiscard]] bool isAtEnd() const {
        const xmlParserInput* input = _context->input;
        return (input == nullptr || input->cur >= input->end) && _source->remaining() == 0;
    }
    [[nodiscard]] std::string withLastFault(std::string_view why) const;

    static int onRead(void* reading, char* bytes, int size);
    static void onFault(void* context, xmlError* fault) {
        if (fault != nullptr)
            of(context).report(*fault);
    }
    static void onStartElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                               int namespaceCount, const xmlChar** namespaces, int attributeCount, int defaultedCount,
                               const xmlChar** attributes);
    static void onEndElement(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
        of(context)._builder->endElement();
    }
    static void onText(void* context, const xmlChar* text, int length);
    static void onBlanks(void* context, const xmlChar* blanks, int length);
    static void onComment(void* context, const xmlChar* text) {
        of(context)._builder->addNode(Kind::Comment, view(text));
    }
    static void onInstruction(void* context, const xmlChar* target, const xmlChar* content);
    static void onReference(void* context, const xmlChar* name) {
        of(context).refuseManyNames();
        of(context)._builder->addNode(Kind::Reference, view(name));
    }
    static void onDoctype(void* context, const xmlChar* name, const xmlChar* externalId, const xmlChar* systemId);

    /// The library's allocations do not tell for whom they are.
    static constinit thread_local Reading* present;
    struct Presence {
        explicit Presence(Reading* reading) { present = reading; }
        ~Presence() { present = nullptr; }
        Presence(const Presence&) = delete;
        Presence& operator=(const Presence&) = delete;
    };

    std::string_view _name;
    std::size_t _loggedBefore;
    XMLSource* _source = nullptr;
    std::size_t _faults = 0;
    bool _endsTooEarly = false; // a fault was met where the text ends: inside a tag, a comment, or with elements open
    ContextOwner _context;
    std::optional<TreeBuilder> _builder;
    std::string _refusal;
    std::string _lastFault;
};

constinit thread_local Reading* Reading::present = nullptr;

std::unique_ptr<Tree> Reading::read(XMLSource& source, std::string& reason) {
    _source = &source;
    if (source.remaining() == 0) {
        reason = fmt::format("'{}' could not be read: it is empty", _name);
        return nullptr;
    }
    if (!openContext()) {
        reason = fmt::format("'{}' could not be read: there is not enough memory for it", _name);
        return nullptr;
    }
    {
        const Presence presence(this);
        xmlParseDocument(_context.get());
    }
    xmlFreeDoc(_context->myDoc); // of which only the names are in use
    _context->myDoc = nullptr;
    std::unique_ptr<Tree> tree = _builder->takeTree();
    if (const auto why = whyRefused(tree->root())) {
        reason = fmt::format("'{}' could not be read: {}", _name, *why);
        return nullptr;
    }
    return tree;
}

bool Reading::openContext() {
    _context.reset(xmlCreateIOParserCtxt(nullptr, nullptr, onRead, nullptr, this, XML_CHAR_ENCODING_NONE));
    if (_context == nullptr)
        return false;
    _context->_private = this;
    xmlCtxtUseOptions(_context.get(), kOptions);
    setCallbacks();
    _builder.emplace(_context.get());
    return true;
}

void Reading::setCallbacks() {
    xmlSAXHandler& callbacks = *_context->sax;
    callbacks.serror = onFault;
    callbacks.startElementNs = onStartElement;
    callbacks.endElementNs = onEndElement;
    callbacks.characters = onText;
    callbacks.ignorableWhitespace = onBlanks;
    callbacks.comment = onComment;
    callbacks.processingInstruction = onInstruction;
    callbacks.reference = onReference;
    callbacks.internalSubset = onDoctype;
    callbacks.externalSubset = nullptr;
}

// A failed read ends the text for the library; what it finds missing then is no fault of the document.
std::size_t Reading::readPiece(std::span<char> bytes) {
    std::string fault;
    const auto size = _source->read(bytes, fault);
    if (!size && _refusal.empty())
        _refusal = fault;
    return size.value_or(0);
}

int Reading::onRead(void* reading, char* bytes, int size) {
    return static_cast<int>(static_cast<Reading*>(reading)->readPiece({bytes, static_cast<std::size_t>(size)}));
}

void Reading::refuse(std::string_view why) {
    if (_refusal.empty())
        _refusal = why;
    xmlStopParser(_context.get());
}

// The library looks names up in a table that stops growing: each costs the more, the more there are. They are those of
// elements, attributes, namespaces, entities and instructions.
void Reading::refuseManyNames() {
    if (xmlDictSize(_context->dict) > kMostNames)
        refuse("it has too many different names");
}

void Reading::onStartElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                             int namespaceCount, const xmlChar** namespaces, int attributeCount, int,
                             const xmlChar** attributes) {
    TreeBuilder& builder = *of(context)._builder;
    builder.startElement(name, prefix, uri);
    for (int i = 0; i < namespaceCount; ++i, namespaces += 2)
        builder.addNamespace(namespaces[0], namespaces[1]);
    for (int i = 0; i < attributeCount; ++i, attributes += 5)
        builder.addAttribute(attributes[0], attributes[1],
                             view(attributes[3], static_cast<int>(attributes[4] - attributes[3])));
    of(context).refuseManyNames(); // frees the text in which the attributes' values stand
}

void Reading::onText(void* context, const xmlChar* text, int length) {
    if (!of(context)._builder->addText(view(text, length)))
        of(context).refuseLongText();
}

void Reading::onInstruction(void* context, const xmlChar* target, const xmlChar* content) {
    std::string text(view(target));
    if (content != nullptr)
        text.append(" ").append(view(content));
    of(context)._builder->addNode(Kind::Instruction, text);
    of(context).refuseManyNames();
}

// The declarations that may follow are refused before the library reads them.
void Reading::onDoctype(void* context, const xmlChar* name, const xmlChar* externalId, const xmlChar* systemId) {
    if (*static_cast<xmlParserCtxt*>(context)->input->cur == '[')
        of(context).refuse("its DOCTYPE holds declarations");
    else
        xmlSAX2InternalSubset(context, name, externalId, systemId);
}

// The library compares each attribute of a start tag with all before it, and each declaration of a namespace with all
// that are in force. It keeps both in tables. Where they outgrow any document they get no more memory, which ends the
// parsing.
bool Reading::isTableBeyondBounds(const void* table, std::size_t size) {
    constexpr std::size_t attribute = 5 * sizeof(void*), declaration = 2 * sizeof(void*);
    if (_context == nullptr || table == nullptr)
        return false;
    if (table == _context->atts && size > kMostAttributes * attribute)
        _refusal = "a start tag has too many attributes";
    else if (table == _context->nsTab && size > kMostNamespaces * declaration)
        _refusal = "too many namespaces are declared";
    return !_refusal.empty();
}

void* Reading::reallocate(void* block, std::size_t size) {
    if (present != nullptr && present->isTableBeyondBounds(block, size))
        return nullptr;
    return std::realloc(block, size); // NOLINT(*-no-malloc, *-owning-memory): memory of the library's own
}

void Reading::refuseLongText() {
    if (_context->disableSAX != 0)
        return;
    xmlError fault{};
    fault.level = XML_ERR_ERROR;
    fault.line = _context->input == nullptr ? 0 : _context->input->line;
    std::string message = "xmlSAX2Characters: huge text node"; // the library's words for it
    fault.message = message.data();
    report(fault);
    xmlStopParser(_context.get());
}

// Blanks between elements are most of a printed document's nodes and nobody's text. Only line ends with their indents
// in front of a tag are left out; a single blank between inline elements stays, and so does what stands before a
// comment or a CDATA section, which may belong to a text.
void Reading::onBlanks(void* context, const xmlChar* blanks, int length) {
    const xmlChar* next = static_cast<xmlParserCtxt*>(context)->input->cur;
    const bool beforeTag = next[0] == '<' && next[1] != '!' && next[1] != '?';
    if (!beforeTag || view(blanks, length).find('\n') == std::string_view::npos)
        onText(context, blanks, length);
}

void Reading::report(const xmlError& fault) {
    refuseManyNames(); // those of entities in attributes show here alone
    if (!_refusal.empty())
        return;
    // A warning repairs nothing, but a reference to an entity that nobody declared stays in the text as it stands.
    if (fault.level == XML_ERR_WARNING && fault.code != XML_WAR_UNDECLARED_ENTITY)
        return;
    _lastFault = fmt::format("line {}: {}", fault.line, oneLine(fault.message));
    if (fault.level == XML_ERR_FATAL && isAtEnd())
        _endsTooEarly = true;
    if (++_faults > _loggedBefore && _faults <= kMostFaultsLogged)
        logLine("WARNING: '{}', {}", _name, _lastFault);
}

std::optional<std::string> Reading::whyRefused(const Element* root) {
    if (!_refusal.empty())
        return _refusal;
    if (_context->disableSAX != 0)
        return withLastFault("the reading stopped");
    if (root == nullptr)
        return withLastFault("it has no root element");
    if (_endsTooEarly || _context->nameNr > 0)
        return withLastFault("it ends too early");
    const bool losesMarkup = hasMarkupBehindRoot();
    if (!_refusal.empty())
        return _refusal;
    if (losesMarkup)
        return withLastFault("markup stands behind the end of its root element");
    return std::nullopt;
}

// What stands behind the root is lost. A stray byte may be, elements may not: one end tag too many closes the root.
bool Reading::hasMarkupBehindRoot() {
    if (isAtEnd())
        return false;
    const xmlParserInput* input = _context->input;
    const std::string_view rest(reinterpret_cast<const char*>(input->cur),
                                static_cast<std::size_t>(input->end - input->cur));
    bool found = isConverted() || rest.find('<') != std::string_view::npos;
    std::array<char, 4096> piece;
    while (!found) {
        const std::size_t size = readPiece(piece);
        if (size == 0)
            break;
        found = std::string_view(piece.data(), size).find('<') != std::string_view::npos;
    }
    return found;
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

void tellFaultsNotLogged(std::string_view name, std::size_t faults) {
    if (faults > kMostFaultsLogged)
        logLine("WARNING: '{}' has {} more faults.", name, faults - kMostFaultsLogged);
}

void tellNothing(void*, xmlError*) {}

// The library's type of function. NOLINTNEXTLINE(cert-dcl50-cpp)
void printNothing(void*, const char*, ...) {}

xmlParserInput* loadNothing(const char*, const char*, xmlParserCtxt*) { return nullptr; }

} // namespace

std::unique_ptr<Tree> parseXML(XMLSource& source, std::string_view name, std::string& reason) {
    prepareXMLLibrary();
    std::string fault;
    const auto refused = [&] {
        reason = fmt::format("'{}' could not be read: {}", name, fault);
        return nullptr;
    };
    if (!source.open(fault))
        return refused();
    Reading reading(name);
    std::unique_ptr<Tree> tree = reading.read(source, reason);
    if (!reading.metForeignBytes()) {
        tellFaultsNotLogged(name, reading.faults());
        return tree;
    }

    tree.reset();
    if (!source.open(fault))
        return refused();
    std::string text(source.remaining(), '\0');
    const auto size = source.read(text, fault);
    if (!size)
        return refused();
    text = withForeignBytesConverted(std::string_view(text).substr(0, *size));
    const auto repaired = XMLSource::ofText(text);
    if (!repaired->open(fault))
        return refused();
    Reading second(name, reading.faults());
    tree = second.read(*repaired, reason);
    tellFaultsNotLogged(name, std::max(reading.faults(), second.faults()));
    return tree;
}

void prepareXMLLibrary() {
    [[maybe_unused]] static const bool ready = [] {
        xmlMemSetup(std::free, std::malloc, Reading::reallocate, strdup);
        xmlInitParser();
        xmlSetExternalEntityLoader(loadNothing);
        xmlSetGenericErrorFunc(nullptr, printNothing);
        xmlSetStructuredErrorFunc(nullptr, tellNothing);
        xmlThrDefSetGenericErrorFunc(nullptr, printNothing);
        xmlThrDefSetStructuredErrorFunc(nullptr, tellNothing);
        return true;
    }();
}

} // namespace brackwater
