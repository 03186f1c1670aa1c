#include "TWMSPFilterRunners/Command/BundleList.h"

#include "Platform/Files/TextFile.h"
#include "TWMSPFilterRunners/Command/FileDescriptor.h"
#include "TWMSPFilterRunners/Command/UsageError.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace brackwater {

namespace {

constexpr std::size_t kMostBytes = std::size_t{64} << 20;
constexpr std::size_t kMostBundles = 1'000'000;
constexpr int kMillisecondsForAWriter = 5000;

class ListReader {
public:
    explicit ListReader(const std::string& path)
        : _path(path), _opened(path == "-" ? FileDescriptor() : openedAt(path)),
          _descriptor(path == "-" ? STDIN_FILENO : _opened.get()) {}

    std::string readAll() {
        struct stat status {};
        if (fstat(_descriptor, &status) == 0 && S_ISDIR(status.st_mode))
            fail("is a folder");
        _isNamedPipe = _opened && S_ISFIFO(status.st_mode);
        std::string text;
        while (readPiece(text)) {
            if (text.size() > kMostBytes)
                fail(fmt::format("is longer than {} MiB: not a list of bundles", kMostBytes >> 20));
        }
        return text;
    }

private:
    // Opening a pipe without a writer must not block.
    FileDescriptor openedAt(const std::string& path) const {
        FileDescriptor opened(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
        if (!opened)
            fail(std::generic_category().message(errno));
        return opened;
    }

    /// False at the end.
    bool readPiece(std::string& text) {
        std::array<char, 65536> piece;
        const ssize_t got = read(_descriptor, piece.data(), piece.size());
        if (got > 0) {
            text.append(piece.data(), static_cast<std::size_t>(got));
            _hasWriter = true;
            return true;
        }
        if (got == 0)
            return waitForAWriter();
        if (errno == EAGAIN) {
            _hasWriter = true;
            pollfd ready{_descriptor, POLLIN, 0};
            poll(&ready, 1, -1);
        } else if (errno != EINTR) {
            fail(std::generic_category().message(errno));
        }
        return true;
    }

    /// A named pipe that nobody has opened for writing yet also looks ended.
    bool waitForAWriter() {
        if (!_isNamedPipe || _hasWriter)
            return false;
        pollfd ready{_descriptor, POLLIN, 0};
        if (poll(&ready, 1, kMillisecondsForAWriter) <= 0)
            fail("is a pipe, and nobody writes to it");
        _hasWriter = true;
        return true;
    }

    [[noreturn]] void fail(const std::string& fault) const {
        throw UsageError(fmt::format("the list '{}' cannot be read: {}", _path, fault));
    }

    const std::string& _path;
    FileDescriptor _opened;
    int _descriptor;
    bool _isNamedPipe = false;
    bool _hasWriter = false;
};

} // namespace

std::vector<std::string> readBundleList(const std::string& path) {
    std::string text = ListReader(path).readAll();
    if (text.find('\0') != std::string::npos)
        throw UsageError(fmt::format("the list '{}' contains zero bytes: not a text", path));
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark))
        text.erase(0, byteOrderMark.size());
    const auto bundles = componentsSeparatedByNewlines(
        text, [](std::string_view line) { return !line.empty() && !line.starts_with("::"); });
    if (bundles.size() > kMostBundles)
        throw UsageError(fmt::format("the list '{}' names more than {} bundles", path, kMostBundles));
    return {bundles.begin(), bundles.end()};
}

} // namespace brackwater
