#include "TWMSPCommon/MSPCExtensions.h"

#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace brackwater {

namespace {

void put(Error* slot, std::string_view domain, int code, std::string description) {
    if (slot != nullptr)
        *slot = Error{domain, code, std::move(description)};
}

// Non-ASCII Unicode blanks and line ends, as UTF-8.
constexpr std::array<std::string_view, 19> kWideBlanks = {
    "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81", "\xE2\x80\x82", "\xE2\x80\x83",
    "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86", "\xE2\x80\x87", "\xE2\x80\x88", "\xE2\x80\x89", "\xE2\x80\x8A",
    "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F", "\xE3\x80\x80"};

constexpr bool isBlank(char byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

std::size_t blankInFront(std::string_view text) {
    if (!text.empty() && isBlank(text.front()))
        return 1;
    const auto* found = std::find_if(kWideBlanks.begin(), kWideBlanks.end(),
                                     [text](std::string_view blank) { return text.starts_with(blank); });
    return found == kWideBlanks.end() ? 0 : found->size();
}

std::size_t blankAtEnd(std::string_view text) {
    if (!text.empty() && isBlank(text.back()))
        return 1;
    const auto* found = std::find_if(kWideBlanks.begin(), kWideBlanks.end(),
                                     [text](std::string_view blank) { return text.ends_with(blank); });
    return found == kWideBlanks.end() ? 0 : found->size();
}

std::string_view trimmed(std::string_view text) {
    while (const std::size_t length = blankInFront(text))
        text.remove_prefix(length);
    while (const std::size_t length = blankAtEnd(text))
        text.remove_suffix(length);
    return text;
}

// Non-ASCII letters never fold to one of the words.
bool equalsFoldingCase(std::string_view text, std::string_view lowerCaseWord) {
    const auto same = [](char left, char right) {
        return (left >= 'A' && left <= 'Z' ? static_cast<char>(left + ('a' - 'A')) : left) == right;
    };
    return std::equal(text.begin(), text.end(), lowerCaseWord.begin(), lowerCaseWord.end(), same);
}

// Length of the line end at the start of the text, or 0.
std::size_t lineEndInFront(std::string_view text) {
    if (text.front() == '\r' || text.front() == '\n')
        return 1;
    return text.starts_with("\xE2\x80\xA8") || text.starts_with("\xE2\x80\xA9") ? 3 : 0;
}

// Length of the line end's character reference at the start of the text, or 0. Only these spellings count.
std::size_t lineEndReferenceInFront(std::string_view text) {
    constexpr std::array<std::string_view, 6> references = {"&#x0D;", "&#x0d;", "&#x2028;",
                                                            "&#x0A;", "&#x0a;", "&#x2029;"};
    for (const std::string_view reference : references)
        if (text.starts_with(reference))
            return reference.size();
    return 0;
}

} // namespace

std::optional<XMLElement> singleObjectForXQuery(XMLElement element, const XMLQuery& query, Error* error) {
    if (error == nullptr)
        return element.lastObjectForXQuery(query).last;
    Error unsupported;
    const XMLElement::LastFound found = element.lastObjectForXQuery(query, &unsupported);
    if (unsupported)
        *error = std::move(unsupported);
    else if (found.count == 0)
        put(error, kXQueryErrorDomain, kXQueryNoNodeError, "The query found no node.");
    else if (found.count > 1)
        put(error, kXQueryErrorDomain, kXQueryManyNodesError, "The query found more than one node.");
    return found.last;
}

std::optional<std::string> stringValueForXQuery(XMLElement element, const XMLQuery& query, Error* error) {
    const auto node = singleObjectForXQuery(element, query, error);
    if (!node)
        return std::nullopt;
    return node->stringValue();
}

std::int64_t intValueForXQuery(XMLElement element, const XMLQuery& query, Error* error) {
    const auto node = singleObjectForXQuery(element, query, error);
    if (!node)
        return 0;
    std::string storage;
    const auto scanned = scanInteger(node->textView(storage));
    if (!scanned)
        failAssertion("Failed to get int value from XML node: " + node->description());
    return scanned->value;
}

double floatValueForXQuery(XMLElement element, const XMLQuery& query, Error* error) {
    const auto node = singleObjectForXQuery(element, query, error);
    if (!node)
        return 0.0;
    std::string storage;
    const auto scanned = scanDouble(node->textView(storage));
    if (!scanned)
        failAssertion("Failed to get float value from XML node: " + node->description());
    return scanned->value;
}

bool boolValueForXQuery(XMLElement element, const XMLQuery& query, Error* error) {
    const auto node = singleObjectForXQuery(element, query, error);
    if (!node)
        return false;
    std::string storage;
    return MSPCBoolValueFromString(node->textView(storage), error);
}

bool boolAttributeForName(XMLElement element, std::string_view name, Error* error) {
    if (const auto text = element.attributeView(name))
        return MSPCBoolValueFromString(*text, error);
    if (error != nullptr)
        put(error, kXQueryErrorDomain, kXQueryMissingAttributeError,
            fmt::format("Failed to find arrtibute '{}' in element '{}'.", name, element.name()));
    return false;
}

XMLElement addChildElementWithName(XMLElement element, std::string_view name,
                                   std::optional<std::string_view> stringValue) {
    XMLElement child = element.addChild(name);
    if (stringValue)
        child.setStringValue(*stringValue);
    return child;
}

XMLElement insertChildElementWithName(XMLElement element, std::string_view name, std::int32_t index) {
    return element.insertChild(name, index);
}

XMLElement insertChildElementWithName(XMLElement element, std::string_view name,
                                      std::optional<std::string_view> stringValue, std::int32_t index) {
    XMLElement child = element.insertChild(name, index);
    if (stringValue)
        child.setStringValue(*stringValue);
    return child;
}

void setAttributeWithName(XMLElement element, std::string_view name, std::optional<std::string_view> stringValue) {
    if (stringValue)
        element.setAttribute(name, *stringValue);
    else if (!element.attributeForName(name))
        element.setAttribute(name, "");
}

void addComment(XMLElement element, std::optional<std::string_view> text) { element.addComment(text.value_or("")); }

void insertComment(XMLElement element, std::optional<std::string_view> text, std::int32_t index) {
    element.insertComment(text.value_or(""), index);
}

std::string stringByReplacingOccurrencesOfNewline(std::string_view text) {
    // The possible first bytes of a line end or its reference; most texts have none of them.
    constexpr std::string_view suspects = "\r\n&\xE2";
    const bool hasReferences = !text.starts_with("<![CDATA[");
    std::string line;
    std::size_t copied = 0;
    std::size_t position = text.find_first_of(suspects);
    while (position != std::string_view::npos) {
        const std::string_view rest = text.substr(position);
        std::size_t length = lineEndInFront(rest);
        if (length == 0 && hasReferences)
            length = lineEndReferenceInFront(rest);
        if (length != 0) {
            line.append(text, copied, position - copied);
            line += ' ';
            copied = position + length;
        }
        position = text.find_first_of(suspects, position + std::max<std::size_t>(length, 1));
    }
    line.append(text, copied);
    return line;
}

bool MSPCBoolValueFromString(std::string_view text, Error* error) {
    const std::string_view word = trimmed(text);
    if (equalsFoldingCase(word, "true") || equalsFoldingCase(word, "yes"))
        return true;
    if (equalsFoldingCase(word, "false") || equalsFoldingCase(word, "no"))
        return false;
    const auto number = scanInt(word);
    if (number && number->length == word.size())
        return number->value != 0;
    if (error != nullptr)
        put(error, kGeneralErrorDomain, kGeneralNoBooleanError,
            fmt::format("Failed to get boolean value from string: \"{}\"", text));
    return false;
}

Error MSPCMakeNotPortedXQueryError(std::string_view path, int line, std::string_view query) {
    return notPortedXQueryError(path, line, query);
}

} // namespace brackwater
