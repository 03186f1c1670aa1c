#include "MPPXMLDOMFilter/Container/TemporaryOutput.h"

#include "Platform/PathText.h"

#include <fmt/format.h>
#include <glib.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace brackwater {

namespace {

constexpr int kReadableAndWritable = 0666; // what the user's mask leaves of it

enum class Move { Done, Taken, Failed };

Move resultOf(int answer) {
    if (answer == 0)
        return Move::Done;
    return errno == EEXIST ? Move::Taken : Move::Failed;
}

bool fileSystemLacksIt() { return errno == EINVAL || errno == ENOSYS || errno == EPERM || errno == EOPNOTSUPP; }

// For file systems that know neither a move that spares the destination nor a second name: an empty file of our own
// takes the name first, and is replaced.
Move moveOntoReservation(const char* from, const char* to) {
    const int reservation = open(to, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kReadableAndWritable);
    if (reservation < 0)
        return resultOf(-1);
    close(reservation);
    if (rename(from, to) == 0)
        return Move::Done;
    const int fault = errno;
    unlink(to);
    errno = fault;
    return Move::Failed;
}

Move moveWithoutReplacing(const char* from, const char* to) {
    Move move = resultOf(renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE));
    if (move != Move::Failed || !fileSystemLacksIt())
        return move;
    move = resultOf(link(from, to));
    if (move == Move::Done)
        unlink(from);
    if (move != Move::Failed || !fileSystemLacksIt())
        return move;
    return moveOntoReservation(from, to);
}

} // namespace

TemporaryOutput::~TemporaryOutput() {
    if (_descriptor >= 0)
        close(_descriptor);
    if (_file && !_moved)
        unlink(_file->path().c_str());
}

std::unique_ptr<TemporaryOutput> TemporaryOutput::beside(const std::string& destination, std::string& fault) {
    std::string path =
        stringByAppendingPathComponent(stringByDeletingLastPathComponent(destination), ".gsf-save-XXXXXX");
    std::unique_ptr<TemporaryOutput> output(new TemporaryOutput);
    // Neither a signal nor a lack of memory between the two steps leaves a file that nobody knows of.
    const SignalsHeldBack heldBack;
    const int file = g_mkstemp_full(path.data(), O_WRONLY | O_CLOEXEC, kReadableAndWritable);
    if (file < 0) {
        fault = fmt::format("{}: {}", path, std::strerror(errno));
        return nullptr;
    }
    output->_descriptor = file;
    output->_file.emplace(std::move(path));
    return output;
}

std::FILE* TemporaryOutput::openStream(std::string& fault) {
    std::FILE* stream = fdopen(_descriptor, "wb");
    if (stream != nullptr)
        _descriptor = -1;
    else
        fault = fmt::format("{}: {}", _file->path(), std::strerror(errno));
    return stream;
}

bool TemporaryOutput::moveTo(NumberedPath& destination, std::string& fault) {
    Move move = moveWithoutReplacing(_file->path().c_str(), destination.path().c_str());
    while (move == Move::Taken) {
        destination.next();
        destination.findFree();
        move = moveWithoutReplacing(_file->path().c_str(), destination.path().c_str());
    }
    _moved = move == Move::Done;
    if (!_moved)
        fault = std::strerror(errno);
    return _moved;
}

} // namespace brackwater
