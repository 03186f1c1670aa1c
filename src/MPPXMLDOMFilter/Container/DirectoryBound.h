#pragma once

#include "MPPXMLDOMFilter/Container/GObjectPointer.h"

namespace brackwater {

/// Whether the directory of a compound file is small enough to be opened. The library reads a directory by recursion,
/// an entry a level, and sorts entries as it goes: some tens of thousands of entries, chained the wrong way, overrun
/// the stack, and more take minutes. Real templates have some hundreds. False as well for what is no compound file or
/// has a directory that cannot be followed. Leaves the input at its start.
[[nodiscard]] bool hasSensibleDirectory(GsfInput* input);

} // namespace brackwater
