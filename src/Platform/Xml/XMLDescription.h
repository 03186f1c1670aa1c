#pragma once

#include "Platform/Xml/XMLElement.h"

#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

/// The element's attribute as XML on one line, NAME="TEXT", cut after some hundred bytes, for messages; nothing where
/// there is none.
[[nodiscard]] std::optional<std::string> descriptionOfAttribute(XMLElement element, std::string_view name);

} // namespace brackwater
