#pragma once

#include "MPPXMLDOMFilter/Container/GObjectPointer.h"

namespace brackwater {

/// Whether the directory of a compound file is small enough to open. The library reads a directory recursively, one
/// level per entry, and sorts entries as it goes: some tens of thousands of badly chained entries overflow the stack,
/// and more take minutes. Real templates have some hundreds. Also false if the input is not a compound file or its
/// directory cannot be followed. Leaves the input at its start.
[[nodiscard]] bool hasSensibleDirectory(GsfInput* input);

} // namespace brackwater
