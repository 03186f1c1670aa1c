#pragma once

#include "support/TempFolder.h"

#include <string>

namespace brackwater::test {

/// Writes a bundle that holds each element of the source format, and gives its path.
std::string writeEverything(const TempFolder& folder);

} // namespace brackwater::test
