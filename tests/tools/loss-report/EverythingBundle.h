#pragma once

#include "support/TempFolder.h"

#include <string>

namespace brackwater::test {

/// Writes a bundle with every element of the source format, and returns its path.
std::string writeEverything(const TempFolder& folder);

} // namespace brackwater::test
