#include "TWMSPFilterRunners/Command/OutputFile.h"

#include "Platform/Files/FileMove.h"
#include "Platform/Files/PathText.h"
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
    // EINVAL: a file system that does not support syncing.
    if (!opened || (fsync(opened.get()) != 0 && errno != EINVAL))
        fail("cannot be synced to disk:", path);
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
    FileMove move = moveWithoutReplacing(from, to);
    while (move == FileMove::Taken)
        move = moveWithoutReplacing(from, numberedPath(to, ++number));
    if (move == FileMove::Failed)
        fail("cannot be moved into place:", to);
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
