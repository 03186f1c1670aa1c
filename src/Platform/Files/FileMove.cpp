#include "Platform/Files/FileMove.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace brackwater {

namespace {

constexpr int kReadableAndWritable = 0666; // reduced by the user's umask

FileMove resultOf(int answer) {
    if (answer == 0)
        return FileMove::Done;
    return errno == EEXIST ? FileMove::Taken : FileMove::Failed;
}

bool fileSystemLacksIt() { return errno == EINVAL || errno == ENOSYS || errno == EPERM || errno == EOPNOTSUPP; }

// For file systems that support neither an exclusive rename nor hard links: creates an empty file under the name first,
// then replaces it.
FileMove moveOntoReservation(const char* from, const char* to) {
    const int reservation = open(to, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kReadableAndWritable);
    if (reservation < 0)
        return resultOf(-1);
    close(reservation);
    if (rename(from, to) == 0)
        return FileMove::Done;
    const int fault = errno;
    unlink(to);
    errno = fault;
    return FileMove::Failed;
}

} // namespace

FileMove moveWithoutReplacing(const std::string& fromPath, const std::string& toPath) {
    const char* from = fromPath.c_str();
    const char* to = toPath.c_str();
    FileMove move = resultOf(renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE));
    if (move != FileMove::Failed || !fileSystemLacksIt())
        return move;
    move = resultOf(link(from, to));
    if (move == FileMove::Done)
        unlink(from);
    if (move != FileMove::Failed || !fileSystemLacksIt())
        return move;
    return moveOntoReservation(from, to);
}

} // namespace brackwater
