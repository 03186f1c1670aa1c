#pragma once

#include "Platform/Values/Error.h"

#include <cstddef>
#include <string_view>

namespace brackwater {

/// One of the path questions that the system asks of a source document. It holds views only: what it was made from must
/// outlive it. Element names match by local name, whatever namespace the document declares.
///
/// Constant queries are made from their text, at no cost at run time: `singleObjectForXQuery(element, "start-date")`.
/// Queries with a value come from the makers below, so that no value can change a query's meaning. Nothing is
/// allocated.
class XMLQuery {
public:
    enum class Form {
        Child,                   ///< "task"
        ChildPath,               ///< "project/title"
        AnyDepth,                ///< "//project/currency-format": the last step below a parent of the first step's name
        ChildWithAttribute,      ///< "flattened-schedule-day[@date]"
        ChildWithValue,          ///< "task[@id='t1']"
        AnyDepthWithParentValue, ///< "//assignment[@idref='r1' and ../@id='t1']"
        Unsupported              ///< any other text; finds nothing and puts the error "NOT PORTED XQUERY" in the slot
    };

    /// Parses a literal when the program is compiled.
    template <std::size_t Size>
    consteval XMLQuery(const char (&literal)[Size]) noexcept // NOLINT: a literal stands for its query
        : XMLQuery(std::string_view(literal, Size - 1)) {}

    /// Parses one of the six forms.
    explicit constexpr XMLQuery(std::string_view text) noexcept : _text(text) {
        if (!parse(text)) {
            _form = Form::Unsupported;
            _first = _name = _attribute = _value = _parentAttribute = _parentValue = {};
        }
    }

    /// NAME[@ATTRIBUTE='VALUE']
    [[nodiscard]] static constexpr XMLQuery childWithValue(std::string_view name, std::string_view attribute,
                                                           std::string_view value) noexcept {
        XMLQuery query;
        query._form = Form::ChildWithValue;
        query._name = name;
        query._attribute = attribute;
        query._value = value;
        return query;
    }

    /// //NAME[@ATTRIBUTE='VALUE' and ../@PARENT_ATTRIBUTE='PARENT_VALUE']
    [[nodiscard]] static constexpr XMLQuery anyDepthWithParentValue(std::string_view name, std::string_view attribute,
                                                                    std::string_view value,
                                                                    std::string_view parentAttribute,
                                                                    std::string_view parentValue) noexcept {
        XMLQuery query = childWithValue(name, attribute, value);
        query._form = Form::AnyDepthWithParentValue;
        query._parentAttribute = parentAttribute;
        query._parentValue = parentValue;
        return query;
    }

    [[nodiscard]] constexpr Form form() const noexcept { return _form; }
    /// What it was parsed from, or empty.
    [[nodiscard]] constexpr std::string_view text() const noexcept { return _text; }
    /// First step of a path.
    [[nodiscard]] constexpr std::string_view first() const noexcept { return _first; }
    /// Name of the elements found.
    [[nodiscard]] constexpr std::string_view name() const noexcept { return _name; }
    [[nodiscard]] constexpr std::string_view attribute() const noexcept { return _attribute; }
    [[nodiscard]] constexpr std::string_view value() const noexcept { return _value; }
    [[nodiscard]] constexpr std::string_view parentAttribute() const noexcept { return _parentAttribute; }
    [[nodiscard]] constexpr std::string_view parentValue() const noexcept { return _parentValue; }

private:
    constexpr XMLQuery() = default;

    constexpr bool parse(std::string_view rest) noexcept {
        const bool anyDepth = take(rest, "//");
        _name = takeName(rest);
        if (take(rest, "/")) {
            _first = _name;
            _name = takeName(rest);
            _form = anyDepth ? Form::AnyDepth : Form::ChildPath;
            return !_first.empty() && !_name.empty() && rest.empty();
        }
        if (_name.empty())
            return false;
        if (rest.empty() && !anyDepth) {
            _form = Form::Child;
            return true;
        }
        return parseConditions(rest, anyDepth);
    }

    constexpr bool parseConditions(std::string_view rest, bool anyDepth) noexcept {
        if (!take(rest, "[@"))
            return false;
        _attribute = takeName(rest);
        if (_attribute.empty())
            return false;
        if (!anyDepth && rest == "]") {
            _form = Form::ChildWithAttribute;
            return true;
        }
        if (!takeQuoted(rest, _value))
            return false;
        if (!anyDepth) {
            _form = Form::ChildWithValue;
            return rest == "]";
        }
        if (!take(rest, " and ../@"))
            return false;
        _parentAttribute = takeName(rest);
        _form = Form::AnyDepthWithParentValue;
        return !_parentAttribute.empty() && takeQuoted(rest, _parentValue) && rest == "]";
    }

    static constexpr bool take(std::string_view& rest, std::string_view expected) noexcept {
        if (!rest.starts_with(expected))
            return false;
        rest.remove_prefix(expected.size());
        return true;
    }

    static constexpr bool takeQuoted(std::string_view& rest, std::string_view& value) noexcept {
        if (!take(rest, "='"))
            return false;
        const std::size_t end = rest.find('\'');
        if (end == std::string_view::npos)
            return false;
        value = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        return true;
    }

    static constexpr std::string_view takeName(std::string_view& rest) noexcept {
        std::size_t length = 0;
        while (length < rest.size() && isNameByte(rest[length], length == 0))
            ++length;
        const std::string_view name = rest.substr(0, length);
        rest.remove_prefix(length);
        return name;
    }

    static constexpr bool isNameByte(char byte, bool first) noexcept {
        const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' ||
                            static_cast<unsigned char>(byte) >= 0x80;
        return letter || (!first && ((byte >= '0' && byte <= '9') || byte == '-' || byte == '.'));
    }

    Form _form = Form::Unsupported;
    std::string_view _text, _first, _name, _attribute, _value, _parentAttribute, _parentValue;
};

/// The error for a query form that the tree cannot answer: "NOT PORTED XQUERY (FILE [LINE]): QUERY", with the last
/// component of the source file's path.
[[nodiscard]] Error notPortedXQueryError(std::string_view sourcePath, int line, std::string_view query);

} // namespace brackwater
