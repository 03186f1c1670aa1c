#include "Platform/XMLDocument.h"

#include "Platform/XMLParser.h"
#include "Platform/XMLPrinter.h"
#include "Platform/XMLTree.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
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

// The whole of a regular file. Read rather than mapped, since a mapped file that somebody shortens meanwhile ends the
// process.
std::optional<std::string> textOfFile(const std::string& path, std::string& fault) {
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
    if (static_cast<std::uintmax_t>(status.st_size) > kLargestXMLText) {
        fault = "it is larger than 2 GB";
        return std::nullopt;
    }
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    const auto got = readInto(file.descriptor(), text.data(), text.size());
    if (!got) {
        fault = std::strerror(errno);
        return std::nullopt;
    }
    text.resize(*got);
    return text;
}

} // namespace

XMLDocument::XMLDocument(std::unique_ptr<xmltree::Tree> tree) : _tree(std::move(tree)) {}

XMLDocument::~XMLDocument() = default;

std::unique_ptr<XMLDocument> XMLDocument::readFile(const std::string& path, std::string* reason) {
    return read([&path](std::string& fault) { return textOfFile(path, fault); }, path, reason);
}

std::unique_ptr<XMLDocument> XMLDocument::readText(std::string_view text, std::string_view name, std::string* reason) {
    return read([text](std::string&) { return std::string(text); }, name, reason);
}

std::unique_ptr<XMLDocument> XMLDocument::read(const XMLText& text, std::string_view name, std::string* reason) {
    std::string fault;
    if (auto tree = parseXML(text, name, fault))
        return std::unique_ptr<XMLDocument>(new XMLDocument(std::move(tree)));
    if (reason != nullptr)
        *reason = fault;
    return nullptr;
}

std::unique_ptr<XMLDocument> XMLDocument::withRootElement(std::string_view name) {
    auto tree = std::make_unique<xmltree::Tree>();
    xmltree::Tree::append(tree->document(), tree->newElement({tree->copyOf(name), name.size()}, nullptr));
    return std::unique_ptr<XMLDocument>(new XMLDocument(std::move(tree)));
}

XMLElement XMLDocument::rootElement() const { return XMLElement(_tree->root()); }

std::string XMLDocument::serialized() const { return xmltree::printed(*_tree); }

} // namespace brackwater
