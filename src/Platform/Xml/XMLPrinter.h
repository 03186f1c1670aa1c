#pragma once

#include "Platform/Xml/XMLTree.h"

#include <cstddef>
#include <string>

/// Trees as XML text, for the XML sources of this folder.
namespace brackwater::xmltree {

/// The element on one line, cut after `longest` bytes: a huge element costs no more than the part that is shown.
[[nodiscard]] std::string beginningOf(const Element* element, std::size_t longest);

/// An attribute as it stands in a start tag, NAME="TEXT", likewise.
[[nodiscard]] std::string beginningOf(const Attribute* attribute, std::size_t longest);

/// The whole document, pretty printed behind an XML declaration, empty elements compact.
[[nodiscard]] std::string printed(Tree& tree);

} // namespace brackwater::xmltree
