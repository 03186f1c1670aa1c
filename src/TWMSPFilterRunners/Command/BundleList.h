#pragma once

#include <string>
#include <vector>

namespace brackwater {

/// The bundles in a list, one per line, without empty lines and lines that begin with "::". The list is a file or a
/// pipe, or standard input if `path` is "-". Raises UsageError if it cannot be read or is too long to be a list, or if
/// nobody writes to the pipe.
[[nodiscard]] std::vector<std::string> readBundleList(const std::string& path);

} // namespace brackwater
