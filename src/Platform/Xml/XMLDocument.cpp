#include "Platform/Xml/XMLDocument.h"

#include "Platform/Xml/XMLParser.h"
#include "Platform/Xml/XMLPrinter.h"
#include "Platform/Xml/XMLSource.h"
#include "Platform/Xml/XMLTree.h"

namespace brackwater {

XMLDocument::XMLDocument(std::unique_ptr<xmltree::Tree> tree) : _tree(std::move(tree)) {}

XMLDocument::~XMLDocument() = default;

std::unique_ptr<XMLDocument> XMLDocument::readFile(const std::string& path, std::string* reason) {
    return read(*XMLSource::ofFile(path), path, reason);
}

std::unique_ptr<XMLDocument> XMLDocument::readText(std::string_view text, std::string_view name, std::string* reason) {
    return read(*XMLSource::ofText(text), name, reason);
}

std::unique_ptr<XMLDocument> XMLDocument::read(XMLSource& source, std::string_view name, std::string* reason) {
    std::string fault;
    if (auto tree = parseXML(source, name, fault))
        return std::unique_ptr<XMLDocument>(new XMLDocument(std::move(tree)));
    if (reason != nullptr)
        *reason = fault;
    return nullptr;
}

std::unique_ptr<XMLDocument> XMLDocument::withRootElement(std::string_view name) {
    auto tree = std::make_unique<xmltree::Tree>();
    const xmltree::Name* kept = tree->newName({tree->copyOf(name), name.size()}, nullptr);
    xmltree::Tree::append(tree->document(), nullptr, tree->newElement(kept));
    return std::unique_ptr<XMLDocument>(new XMLDocument(std::move(tree)));
}

XMLElement XMLDocument::rootElement() const { return XMLElement(_tree->root()); }

std::string XMLDocument::serialized() const { return xmltree::printed(*_tree); }

} // namespace brackwater
