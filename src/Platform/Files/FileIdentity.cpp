#include "Platform/Files/FileIdentity.h"

#include <ctime>
#include <sys/stat.h>

namespace brackwater {

namespace {

constexpr std::int64_t kCoarsestStep = 2; // seconds

} // namespace

std::optional<FileIdentity> FileIdentity::ofFile(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino, status.st_size, status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

bool FileIdentity::isSettled() const { return changeSeconds < std::time(nullptr) - kCoarsestStep; }

} // namespace brackwater
