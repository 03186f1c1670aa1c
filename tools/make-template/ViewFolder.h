#pragma once

#include "Entry.h"

namespace brackwater::layout {

/// The storage "   212": an empty Gantt chart, table and entry list, empty collections of everything else in real
/// files, and the properties that count them.
[[nodiscard]] Entry viewFolder();

} // namespace brackwater::layout
