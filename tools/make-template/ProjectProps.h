#pragma once

#include "RowStorage.h"

namespace brackwater::layout {

/// Default working week: seven day blocks of 60 bytes, Sunday first, Monday to Friday 8:00 to 12:00 and 13:00 to 17:00.
[[nodiscard]] Bytes defaultHours();

/// "Props" of the version folder: the project's properties, and the sizes and field maps of each kind of row.
[[nodiscard]] Bytes projectProps(const std::vector<RowStorage>& storages);

/// "Props12" of the root.
[[nodiscard]] Bytes rootProps();

} // namespace brackwater::layout
