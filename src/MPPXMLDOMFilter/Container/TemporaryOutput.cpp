#include "MPPXMLDOMFilter/Container/TemporaryOutput.h"

#include "Platform/Files/FileMove.h"
#include "Platform/Files/PathText.h"

#include <fmt/format.h>
#include <glib.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace brackwater {

namespace {

constexpr int kReadableAndWritable = 0666; // reduced by the user's umask

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
    // Neither a signal nor a lack of memory between the two steps leaves an untracked file.
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
    FileMove move = moveWithoutReplacing(_file->path(), destination.path());
    while (move == FileMove::Taken) {
        destination.next();
        destination.findFree();
        move = moveWithoutReplacing(_file->path(), destination.path());
    }
    _moved = move == FileMove::Done;
    if (!_moved)
        fault = std::strerror(errno);
    return _moved;
}

} // namespace brackwater
