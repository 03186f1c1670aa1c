#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace brackwater {

/// One row of a vocabulary: what an element's text does to the record.
template <typename Record>
struct VocabularyRow {
    std::string_view name;
    void (*store)(Record& record, ElementText text);
};

/// The element names that an adapter knows, as one table with perfect hashing: the compiler looks for a multiplier that
/// sends each name to its own slot.
template <typename Record, std::size_t Size>
class ElementVocabulary {
public:
    using Rows = std::array<VocabularyRow<Record>, Size>;

    // If `key` cannot distinguish two names, there is no multiplier and the table does not compile.
    consteval explicit ElementVocabulary(const Rows& rows) : _rows(rows) {
        while (!placeRows())
            _multiplier = _multiplier * 6364136223846793005U + 1442695040888963407U;
    }

    /// Stores the text in the record according to the name's row; an unknown name changes nothing.
    void store(Record& record, std::string_view name, ElementText text) const {
        const std::uint8_t place = _slots[slot(name)];
        if (place < Size && _rows[place].name == name)
            _rows[place].store(record, text);
    }

private:
    static constexpr std::size_t kSlotBits = Size <= 8 ? 5 : 7;
    static constexpr std::uint8_t kEmpty = 0xFF;
    static_assert(Size <= 32);

    /// Length, first and last four characters.
    static constexpr std::uint64_t key(std::string_view name) noexcept {
        std::uint64_t key = name.size();
        if (!name.empty())
            key = key << 8 | static_cast<std::uint8_t>(name.front());
        const std::string_view tail = name.size() > 4 ? name.substr(name.size() - 4) : name;
        for (const char character : tail)
            key = key << 8 | static_cast<std::uint8_t>(character);
        return key;
    }
    constexpr std::size_t slot(std::string_view name) const noexcept {
        return static_cast<std::size_t>(key(name) * _multiplier >> (64 - kSlotBits));
    }
    /// False if two rows fall into one slot.
    consteval bool placeRows() {
        _slots.fill(kEmpty);
        for (std::size_t place = 0; place < Size; ++place) {
            std::uint8_t& target = _slots[slot(_rows[place].name)];
            if (target != kEmpty)
                return false;
            target = static_cast<std::uint8_t>(place);
        }
        return true;
    }

    Rows _rows;
    std::uint64_t _multiplier = 0x9E3779B97F4A7C15U;
    std::array<std::uint8_t, std::size_t{1} << kSlotBits> _slots{};
};

/// A row that stores the converted text in a field: `setField<&MPPTask::work, wholeHours>`.
template <auto Field, auto Conversion, typename Record>
void setField(Record& record, ElementText text) {
    auto& field = record.*Field;
    field = static_cast<std::remove_reference_t<decltype(field)>>(Conversion(text));
}

/// A row for a field that refers to another record by UID: it holds the text until post-processing.
template <auto Field, typename Record>
void setProxy(Record& record, ElementText text) {
    if (text)
        (record.*Field).setProxyText(*text);
    else
        (record.*Field).clear();
}

/// A row for a name that is known to have no field.
template <typename Record>
void dropped(Record&, ElementText) {}

} // namespace brackwater
