#pragma once

#include <string>
#include <vector>

namespace brackwater {

/// The bundles that a list names, one a line; empty lines and lines that begin with "::" are left out. The list is a
/// file or a pipe, or standard input where `path` is "-". Raises UsageError where it cannot be read, is too long to be
/// a list, or nobody writes into the pipe.
[[nodiscard]] std::vector<std::string> readBundleList(const std::string& path);

} // namespace brackwater
