#include "TWMSPFilterRunners/Command/OutputNames.h"

#include "Platform/Files/PathText.h"

#include <fmt/format.h>

#include <sys/stat.h>

namespace brackwater {

std::string numberedPath(const std::string& path, std::uint64_t number) {
    if (number == 0)
        return path;
    return fmt::format("{}-{}.{}", stringByDeletingPathExtension(path), number, pathExtension(path));
}

std::string OutputNames::take(const std::string& path) {
    std::uint64_t& next = _nextNumber[path];
    std::string candidate = numberedPath(path, next++);
    while (!isFree(candidate))
        candidate = numberedPath(path, next++);
    _taken.insert(candidate);
    return candidate;
}

bool OutputNames::isFree(const std::string& path) const {
    struct stat status {};
    return !_taken.contains(path) && (_replacesOutputs || lstat(path.c_str(), &status) != 0);
}

} // namespace brackwater
