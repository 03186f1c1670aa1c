#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"
#include "MPPXMLDOMFilter/Buffers/MPPProps.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace brackwater {

/// The names of text fields by position, and the bytes that each takes at least.
struct FieldAliases {
    const std::vector<std::string>& names;
    std::size_t room;
};

/// The aliases of text fields, one element a name.
[[nodiscard]] std::unique_ptr<MPPOffsetMarkedData> createFieldAliasesData(const FieldAliases& aliases);

/// Appends to an open frame of "Props" the element that gives text fields their aliases. `descriptionEnding` is that of
/// the storage's "VarMeta"; `typeForIndex` gives the type of the text field at a position counted from 1, and raises
/// where there is none.
void writeFieldAliasesElement(MPPProps& props, const FieldAliases& aliases, std::uint16_t descriptionEnding,
                              std::uint16_t (*typeForIndex)(std::size_t));

} // namespace brackwater
