#include "Platform/XMLDocument.h"

#include "Platform/XMLIndex.h"
#include "Platform/XMLParser.h"

#include <fmt/format.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace brackwater {

namespace {

class OpenFile {
public:
    // Without waiting: opening a pipe would hang until somebody writes to it.
    explicit OpenFile(const std::string& path) : _file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~OpenFile() {
        if (_file >= 0)
            close(_file);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    [[nodiscard]] int descriptor() const { return _file; }

private:
    int _file;
};

struct FileBytes {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
};

// Number of bytes read, or nothing with errno set.
std::optional<std::size_t> readInto(int file, char* bytes, std::size_t size) {
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t got = read(file, bytes + filled, size - filled);
        if (got == 0)
            break;
        if (got > 0)
            filled += static_cast<std::size_t>(got);
        else if (errno != EINTR)
            return std::nullopt;
    }
    return filled;
}

// The whole of a regular file, with a NUL byte behind it. Read rather than mapped, since a mapped file that somebody
// shortens meanwhile ends the process.
std::optional<FileBytes> bytesOfFile(const std::string& path, std::string& fault) {
    const OpenFile file(path);
    struct stat status {};
    if (file.descriptor() < 0 || fstat(file.descriptor(), &status) != 0) {
        fault = std::strerror(errno);
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        fault = "it is not a regular file";
        return std::nullopt;
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    FileBytes content{std::unique_ptr<char[]>(new (std::nothrow) char[size + 1]), 0};
    if (content.bytes == nullptr) {
        fault = "there is not enough memory for it";
        return std::nullopt;
    }
    const auto got = readInto(file.descriptor(), content.bytes.get(), size);
    if (!got) {
        fault = std::strerror(errno);
        return std::nullopt;
    }
    content.size = *got;
    content.bytes[content.size] = '\0';
    return content;
}

const xmlChar* chars(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

} // namespace

XMLDocument::XMLDocument(_xmlDoc* document) : _document(document), _index(std::make_unique<XMLIndex>(document)) {
    _document->_private = _index.get();
}

XMLDocument::~XMLDocument() { xmlFreeDoc(_document); }

std::unique_ptr<XMLDocument> XMLDocument::readFile(const std::string& path, std::string* reason) {
    std::string fault;
    _xmlDoc* tree = nullptr;
    if (const auto content = bytesOfFile(path, fault))
        tree = parseXML({content->bytes.get(), content->size}, path, fault);
    else
        fault = fmt::format("'{}' could not be read: {}", path, fault);
    if (tree != nullptr)
        return std::unique_ptr<XMLDocument>(new XMLDocument(tree));
    if (reason != nullptr)
        *reason = fault;
    return nullptr;
}

std::unique_ptr<XMLDocument> XMLDocument::readText(std::string_view text, std::string_view name, std::string* reason) {
    const std::string terminated(text);
    std::string fault;
    if (_xmlDoc* tree = parseXML(terminated, name, fault))
        return std::unique_ptr<XMLDocument>(new XMLDocument(tree));
    if (reason != nullptr)
        *reason = fault;
    return nullptr;
}

std::unique_ptr<XMLDocument> XMLDocument::withRootElement(std::string_view name) {
    prepareXMLLibrary();
    xmlDoc* tree = xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"));
    if (tree == nullptr)
        throw std::bad_alloc();
    xmlDocSetRootElement(tree, xmlNewDocNode(tree, nullptr, chars(std::string(name)), nullptr));
    return std::unique_ptr<XMLDocument>(new XMLDocument(tree));
}

XMLElement XMLDocument::rootElement() const { return XMLElement(xmlDocGetRootElement(_document)); }

std::string XMLDocument::serialized() const {
    constexpr int indented = 1;
    xmlChar* bytes = nullptr;
    int size = 0;
    xmlDocDumpFormatMemoryEnc(_document, &bytes, &size, "UTF-8", indented);
    if (bytes == nullptr)
        return {};
    const std::string text(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    xmlFree(bytes);
    return text;
}

} // namespace brackwater
