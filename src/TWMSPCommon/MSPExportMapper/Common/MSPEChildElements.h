#pragma once

#include "Platform/Text/TextReadings.h"
#include "Platform/Values/NameTable.h"
#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPCExtensions.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

/// The children of a source element by name, found in one pass. Results match queries for each name: the last of
/// several; the functions named "only" treat several as none.
template <typename Name, std::size_t Count>
class MSPEChildElements {
public:
    /// `names` must outlive the object.
    MSPEChildElements(XMLElement element, const NameTable<Count>& names) : _element(element), _names(names) {
        for (auto child = element.firstChildElement(); child; child = child->nextSiblingElement()) {
            if (const std::size_t index = names.find(child->name()); index < Count) {
                _found[index].last = child;
                ++_found[index].count;
            }
        }
    }

    [[nodiscard]] std::size_t count(Name name) const noexcept { return found(name).count; }
    [[nodiscard]] bool has(Name name) const noexcept { return found(name).last.has_value(); }
    [[nodiscard]] std::optional<XMLElement> last(Name name) const noexcept { return found(name).last; }

    /// The last element's text, as a view that is valid until the next call.
    [[nodiscard]] std::optional<std::string_view> text(Name name) const {
        const auto& element = found(name).last;
        return element ? std::optional(element->textView(_buffer)) : std::nullopt;
    }
    [[nodiscard]] std::optional<std::string_view> onlyText(Name name) const {
        return isOnly(name) ? text(name) : std::nullopt;
    }

    /// The last element's number, if there is an element. Raises if its text does not begin with a number.
    [[nodiscard]] std::optional<std::int64_t> integer(Name name) const {
        const auto read = text(name);
        if (!read)
            return std::nullopt;
        if (const auto scanned = scanInteger(*read))
            return scanned->value;
        return intValueForXQuery(_element, query(name));
    }
    [[nodiscard]] std::optional<double> number(Name name) const {
        const auto read = text(name);
        if (!read)
            return std::nullopt;
        if (const auto scanned = scanDouble(*read))
            return scanned->value;
        return floatValueForXQuery(_element, query(name));
    }
    /// The number of the only element; nothing if there are several. The last of several is parsed anyway, so that a
    /// text that is not a number fails.
    [[nodiscard]] std::optional<std::int64_t> onlyInteger(Name name) const {
        const auto value = integer(name);
        return isOnly(name) ? value : std::nullopt;
    }
    [[nodiscard]] std::optional<double> onlyNumber(Name name) const {
        const auto value = number(name);
        return isOnly(name) ? value : std::nullopt;
    }

private:
    struct Found {
        std::optional<XMLElement> last;
        std::size_t count = 0;
    };

    [[nodiscard]] const Found& found(Name name) const noexcept { return _found[static_cast<std::size_t>(name)]; }
    [[nodiscard]] bool isOnly(Name name) const noexcept { return count(name) == 1; }
    [[nodiscard]] XMLQuery query(Name name) const noexcept { return XMLQuery(_names[static_cast<std::size_t>(name)]); }

    XMLElement _element;
    const NameTable<Count>& _names;
    std::array<Found, Count> _found{};
    mutable std::string _buffer;
};

/// Calls `visit` with each child of that name, in document order.
template <typename Visit>
void forEachChildElement(XMLElement element, std::string_view name, Visit visit) {
    for (auto child = element.firstChildElement(); child; child = child->nextSiblingElement())
        if (child->name() == name)
            visit(*child);
}

} // namespace brackwater
