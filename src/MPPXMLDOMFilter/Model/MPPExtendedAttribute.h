#pragma once

#include <optional>
#include <string>

namespace brackwater {

/// A custom field as in the document, before post-processing turns it into names and values: the definition of a field
/// (with an alias) or a value of one.
struct MPPExtendedAttribute {
    std::optional<std::string> fieldID;
    std::optional<std::string> fieldName;
    std::optional<std::string> alias;
    std::optional<std::string> guid;
    std::optional<std::string> value;

    [[nodiscard]] bool isValidAttribute() const noexcept { return fieldID.has_value(); }
    [[nodiscard]] bool isAttributeName() const noexcept { return alias.has_value(); }
    [[nodiscard]] bool isAttributeValue() const noexcept { return value.has_value(); }
};

} // namespace brackwater
