#pragma once

#include "Entry.h"

#include <string>

namespace brackwater::layout {

/// Writes a compound file with the entries at its root, in their order. Throws std::runtime_error with the library's
/// words when the file cannot be written whole.
void writeCompoundFile(const std::string& path, const std::vector<Entry>& entries);

} // namespace brackwater::layout
