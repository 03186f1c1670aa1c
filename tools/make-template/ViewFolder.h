#pragma once

#include "Entry.h"

namespace brackwater::layout {

/// The storage "   212": a Gantt chart, a table and an entry list without contents of their own, empty collections of
/// all else that real files have, and the properties that count them.
[[nodiscard]] Entry viewFolder();

} // namespace brackwater::layout
