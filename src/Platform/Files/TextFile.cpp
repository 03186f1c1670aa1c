#include "Platform/Files/TextFile.h"

#include <glib.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <linux/magic.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>
#include <utility>

namespace brackwater {

namespace {

/// Enough for a list of a million bundles.
constexpr std::size_t kLongestText = std::size_t{128} << 20;
constexpr int kMostMillisecondsForAWriter = 5000;
constexpr int kForEver = -1;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Length in bytes of the newline character at the start of `text`; 0 if there is none.
std::size_t newlineLength(std::string_view text) {
    const char first = text.front();
    if (first >= '\n' && first <= '\r')
        return 1;
    if (text.starts_with("\xC2\x85"))
        return 2;
    if (text.starts_with("\xE2\x80\xA8") || text.starts_with("\xE2\x80\xA9"))
        return 3;
    return 0;
}

class OpenFile {
public:
    // Without blocking: opening a named pipe would wait for a writer.
    explicit OpenFile(const std::string& path) : _file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~OpenFile() {
        if (_file >= 0)
            close(_file);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    [[nodiscard]] bool isReadable(FileKinds kinds, std::size_t most) {
        if (_file < 0 || fstat(_file, &_status) != 0 || S_ISDIR(_status.st_mode))
            return false;
        if (!S_ISREG(_status.st_mode))
            return kinds == FileKinds::Any;
        return static_cast<std::uintmax_t>(_status.st_size) <= most;
    }

    std::optional<std::string> readToEnd(std::size_t most) {
        // Without a writer, a named pipe looks ended.
        const bool nobodyWrites = isNamedPipe() && !isReadyWithin(kMostMillisecondsForAWriter);
        std::string bytes;
        std::array<char, 65536> piece;
        while (bytes.size() <= most) {
            const ssize_t got = read(_file, piece.data(), piece.size());
            if (got > 0)
                bytes.append(piece.data(), static_cast<std::size_t>(got));
            else if (got == 0)
                return nobodyWrites && bytes.empty() ? std::nullopt : std::optional(std::move(bytes));
            else if (errno == EAGAIN)
                isReadyWithin(kForEver);
            else if (errno != EINTR)
                return std::nullopt;
        }
        return std::nullopt;
    }

private:
    // A pipe created by the shell for a command always has its writer.
    [[nodiscard]] bool isNamedPipe() const {
        struct statfs fileSystem {};
        return S_ISFIFO(_status.st_mode) && fstatfs(_file, &fileSystem) == 0 && fileSystem.f_type != PIPEFS_MAGIC;
    }

    bool isReadyWithin(int milliseconds) const {
        pollfd ready{_file, POLLIN, 0};
        return poll(&ready, 1, milliseconds) > 0;
    }

    int _file;
    struct stat _status {};
};

// The library's check stops at a zero byte, which is a valid character.
bool isUtf8(std::string_view text) {
    while (true) {
        const std::string_view piece = text.substr(0, text.find('\0'));
        if (!g_utf8_validate_len(piece.data(), piece.size(), nullptr))
            return false;
        if (piece.size() == text.size())
            return true;
        text.remove_prefix(piece.size() + 1);
    }
}

} // namespace

std::optional<std::string> bytesOfFile(const std::string& path, std::size_t most, FileKinds kinds) {
    OpenFile file(path);
    return file.isReadable(kinds, most) ? file.readToEnd(most) : std::nullopt;
}

std::optional<std::string> stringWithContentsOfFile(const std::string& path) {
    auto text = bytesOfFile(path, kLongestText, FileKinds::Any);
    if (!text)
        return std::nullopt;
    if (text->starts_with(kByteOrderMark))
        text->erase(0, kByteOrderMark.size());
    if (!isUtf8(*text))
        return std::nullopt;
    return text;
}

std::vector<std::string_view> componentsSeparatedByNewlines(std::string_view text, bool (*isWanted)(std::string_view)) {
    std::vector<std::string_view> pieces;
    const auto add = [&](std::string_view piece) {
        if (isWanted(piece))
            pieces.push_back(piece);
    };
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = newlineLength(text.substr(at));
        if (length == 0) {
            ++at;
            continue;
        }
        add(text.substr(begin, at - begin));
        at += length;
        begin = at;
    }
    add(text.substr(begin));
    return pieces;
}

} // namespace brackwater
