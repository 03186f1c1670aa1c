#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"

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

/// The element names that an adapter knows.
template <typename Record, std::size_t Size>
class ElementVocabulary {
public:
    consteval explicit ElementVocabulary(const std::array<VocabularyRow<Record>, Size>& rows) : _rows(rows) {}

    /// Stores the text in the record according to the name's row; an unknown name changes nothing.
    void store(Record& record, std::string_view name, ElementText text) const {
        for (const VocabularyRow<Record>& row : _rows)
            if (row.name == name)
                return row.store(record, text);
    }

private:
    std::array<VocabularyRow<Record>, Size> _rows;
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
