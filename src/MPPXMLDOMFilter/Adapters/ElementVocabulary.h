#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "Platform/Values/NameTable.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace brackwater {

/// One row of a vocabulary: what an element's text does to the record.
template <typename Record>
struct VocabularyRow {
    std::string_view name;
    void (*store)(Record& record, ElementText text);
};

/// The element names that an adapter knows, with what each does.
template <typename Record, std::size_t Size>
class ElementVocabulary {
public:
    using Rows = std::array<VocabularyRow<Record>, Size>;

    consteval explicit ElementVocabulary(const Rows& rows) : _names(namesOf(rows)) {
        for (std::size_t row = 0; row < Size; ++row)
            _stores[row] = rows[row].store;
    }

    /// Stores the text in the record according to the name's row; an unknown name changes nothing.
    void store(Record& record, std::string_view name, ElementText text) const {
        if (const std::size_t row = _names.find(name); row < Size)
            _stores[row](record, text);
    }

private:
    static consteval std::array<std::string_view, Size> namesOf(const Rows& rows) {
        std::array<std::string_view, Size> names;
        for (std::size_t row = 0; row < Size; ++row)
            names[row] = rows[row].name;
        return names;
    }

    NameTable<Size> _names;
    std::array<void (*)(Record&, ElementText), Size> _stores{};
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
