#pragma once

#include "Entry.h"

#include <string>

namespace brackwater::layout {

/// Writes a compound file with the entries in its root, in order. Throws std::runtime_error with the library's message
/// if the file cannot be written completely.
void writeCompoundFile(const std::string& path, const std::vector<Entry>& entries);

} // namespace brackwater::layout
