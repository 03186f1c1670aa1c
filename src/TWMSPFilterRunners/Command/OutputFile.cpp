#include "TWMSPFilterRunners/Command/OutputFile.h"

#include "Platform/PathText.h"
#include "TWMSPFilterRunners/Command/FileDescriptor.h"
#include "TWMSPFilterRunners/Command/OutputNames.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

namespace brackwater {

namespace {

[[noreturn]] void fail(std::string_view what, const std::string& path) {
    throw std::system_error(errno, std::generic_category(), fmt::format("{} '{}'", what, path));
}

void sync(const std::string& path, int flags) {
    const FileDescriptor opened(open(path.c_str(), flags | O_RDONLY | O_CLOEXEC));
    // EINVAL: a file system that has nothing to sync.
    if (!opened || (fsync(opened.get()) != 0 && errno != EINVAL))
        fail("cannot be put on the disk:", path);
}

/// False where the path is taken.
bool moveWithoutReplacing(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno == EEXIST)
        return false;
    if (errno != EINVAL && errno != ENOSYS)
        fail("cannot be moved into place:", to);
    // A file system without that call: the name is taken first, and only what was taken is replaced.
    const FileDescriptor taken(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!taken && errno == EEXIST)
        return false;
    if (!taken || rename(from.c_str(), to.c_str()) != 0)
        fail("cannot be moved into place:", to);
    return true;
}

void moveReplacing(const std::string& from, const std::string& to) {
    struct stat replaced {};
    constexpr mode_t permissions = 0777;
    if (lstat(to.c_str(), &replaced) == 0 && S_ISREG(replaced.st_mode) &&
        chmod(from.c_str(), replaced.st_mode & permissions) != 0)
        fail("cannot get its mode:", to);
    if (rename(from.c_str(), to.c_str()) != 0)
        fail("cannot be moved into place:", to);
}

std::string moveToFreeName(const std::string& from, const std::string& to) {
    std::uint64_t number = 0;
    while (!moveWithoutReplacing(from, numberedPath(to, number)))
        ++number;
    return numberedPath(to, number);
}

} // namespace

std::string moveIntoPlace(const std::string& finishedPath, const std::string& outputPath, bool replaces) {
    sync(finishedPath, 0);
    std::string place = outputPath;
    if (replaces)
        moveReplacing(finishedPath, place);
    else
        place = moveToFreeName(finishedPath, outputPath);
    sync(stringByDeletingLastPathComponent(place), O_DIRECTORY);
    return place;
}

} // namespace brackwater
