#pragma once

#include "Platform/Values/Error.h"
#include "Platform/Xml/XMLElement.h"
#include "Platform/Xml/XMLQuery.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

/// Typed queries of the source document, element building with short calls, text clean-up and boolean parsing: the
/// layer between the mappers and the XML tree.

/// Codes of kXQueryErrorDomain.
inline constexpr int kXQueryNoNodeError = 1;
inline constexpr int kXQueryManyNodesError = 2;
inline constexpr int kXQueryMissingAttributeError = 3;
/// Codes of kGeneralErrorDomain.
inline constexpr int kGeneralNoBooleanError = 2;
inline constexpr int kGeneralNotPortedXQueryError = 100;

// Queries relative to the element. `error` may be null: no node is error 1, several nodes error 2 of the XQuery domain.
// With several nodes the result is still the last one.

[[nodiscard]] std::optional<XMLElement> singleObjectForXQuery(XMLElement element, const XMLQuery& query,
                                                              Error* error = nullptr);
[[nodiscard]] std::optional<std::string> stringValueForXQuery(XMLElement element, const XMLQuery& query,
                                                              Error* error = nullptr);
/// 0 with no node; a text that does not begin with an integer is a failed assertion, anything after the integer is
/// ignored.
[[nodiscard]] std::int64_t intValueForXQuery(XMLElement element, const XMLQuery& query, Error* error = nullptr);
/// 0.0 with no node; a text that does not begin with a number is a failed assertion.
[[nodiscard]] double floatValueForXQuery(XMLElement element, const XMLQuery& query, Error* error = nullptr);
/// False with no node; otherwise `MSPCBoolValueFromString` of the node's text, with the same error slot.
[[nodiscard]] bool boolValueForXQuery(XMLElement element, const XMLQuery& query, Error* error = nullptr);
/// False, with error 3 of the XQuery domain, if the attribute is missing.
[[nodiscard]] bool boolAttributeForName(XMLElement element, std::string_view name, Error* error = nullptr);

// Building. Without a text the element stays empty. An index counts the nodes below the element; if it is out of range,
// it raises NSRangeException.

XMLElement addChildElementWithName(XMLElement element, std::string_view name,
                                   std::optional<std::string_view> stringValue = std::nullopt);
XMLElement insertChildElementWithName(XMLElement element, std::string_view name, std::int32_t index);
XMLElement insertChildElementWithName(XMLElement element, std::string_view name,
                                      std::optional<std::string_view> stringValue, std::int32_t index);
/// Creates the attribute if it is missing; without a value an existing one keeps its text.
void setAttributeWithName(XMLElement element, std::string_view name,
                          std::optional<std::string_view> stringValue = std::nullopt);
void addComment(XMLElement element, std::optional<std::string_view> text);
void insertComment(XMLElement element, std::optional<std::string_view> text, std::int32_t index);

/// The text on one line: replaces every carriage return, line feed, line and paragraph separator with one blank, and
/// also their hexadecimal character references unless the text is a CDATA section.
[[nodiscard]] std::string stringByReplacingOccurrencesOfNewline(std::string_view text);

/// "true", "yes", "false", "no" in any case, or a whole number (true unless it is 0), with blanks around it. Anything
/// else is false with error 2 of the general domain.
[[nodiscard]] bool MSPCBoolValueFromString(std::string_view text, Error* error = nullptr);

/// Error 100 of the general domain; `path` is the source file whose query is not ported.
[[nodiscard]] Error MSPCMakeNotPortedXQueryError(std::string_view path, int line, std::string_view query);

} // namespace brackwater
