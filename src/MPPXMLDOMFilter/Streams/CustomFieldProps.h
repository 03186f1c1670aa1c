#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"
#include "MPPXMLDOMFilter/Buffers/MPPProps.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace brackwater {

/// The aliases of text fields, one element a name, each of 104 bytes at least.
[[nodiscard]] std::unique_ptr<MPPOffsetMarkedData> createFieldAliasesData(const std::vector<std::string>& names);

/// Appends to an open frame of "Props" the element that gives text fields their aliases: `names` by position.
/// `descriptionEnding` is that of the storage's "VarMeta"; `typeForIndex` gives the type of the text field at a
/// position counted from 1, and raises where there is none.
void writeFieldAliasesElement(MPPProps& props, const std::vector<std::string>& names, std::uint16_t descriptionEnding,
                              std::uint16_t (*typeForIndex)(std::size_t));

} // namespace brackwater
