#include "TWMSPFilterRunners/Command/LogFile.h"

#include "TWMSPFilterRunners/Command/StoppableWrite.h"
#include "TWMSPFilterRunners/Command/UsageError.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace brackwater {

namespace {

FileDescriptor namelessFile() {
    const char* folder = std::getenv("TMPDIR");
    std::string name = std::string(folder != nullptr && *folder != '\0' ? folder : "/tmp") + "/brackwater-log-XXXXXX";
    FileDescriptor file(mkostemp(name.data(), O_CLOEXEC));
    if (file)
        unlink(name.c_str());
    return file;
}

} // namespace

// Opening a pipe without a reader must not block.
LogFile::LogFile(const std::string& path, const StopRequests& requests)
    : _file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666)),
      _requests(requests) {
    if (!_file)
        throw UsageError(
            fmt::format("the log '{}' cannot be written: {}", path, std::generic_category().message(errno)));
}

int LogFile::beginJob(std::size_t job) {
    if (job == _turn)
        return _file.get();
    return (_waiting[job] = namelessFile()).get();
}

void LogFile::endJob(std::size_t job, bool isWhole) {
    _isWhole = _isWhole && isWhole;
    if (const auto waiting = _waiting.find(job); waiting != _waiting.end()) {
        append(waiting->second);
        _waiting.erase(waiting);
    }
    _turn = job + 1;
}

void LogFile::append(const FileDescriptor& lines) {
    std::array<char, 65536> piece;
    ssize_t got = lseek(lines.get(), 0, SEEK_SET);
    while (got >= 0 && (got = read(lines.get(), piece.data(), piece.size())) > 0)
        if (!writeUnlessStopped(_file.get(), {piece.data(), static_cast<std::size_t>(got)}, &_requests))
            break;
    _isWhole = _isWhole && got == 0;
}

bool LogFile::close() { return _file.close() && _isWhole; }

} // namespace brackwater
