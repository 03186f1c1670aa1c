#include "Platform/Log/LogLines.h"

#include "Platform/Log/LogLoss.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace brackwater {

namespace {

constinit std::atomic<bool> isWhole = true;

// Bytes taken, 0 to try again, or -1.
ssize_t writeSome(const char* bytes, std::size_t size) noexcept {
    const ssize_t written = write(STDERR_FILENO, bytes, size);
    if (written >= 0)
        return written;
    if (errno == EAGAIN) {
        pollfd ready{STDERR_FILENO, POLLOUT, 0};
        poll(&ready, 1, -1);
        return 0;
    }
    if (errno == EINTR)
        return 0;
    isWhole = false;
    return -1;
}

} // namespace

bool isLogWhole() { return isWhole; }

void writeToStandardError(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const ssize_t written = writeSome(bytes.data(), bytes.size());
        if (written < 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

bool LogLines::append(std::string_view prefix, std::span<const std::string_view> pieces) noexcept {
    std::size_t size = prefix.size() + 1;
    for (const std::string_view piece : pieces)
        size += piece.size();
    const bool isFull = size > _bytes.size() - _filled;
    if (isFull)
        flush();
    if (size > _bytes.size()) {
        writeToStandardError(prefix);
        for (const std::string_view piece : pieces)
            writeToStandardError(piece);
        writeToStandardError("\n");
        return true;
    }
    char* end = std::copy(prefix.begin(), prefix.end(), _bytes.data() + _filled);
    for (const std::string_view piece : pieces)
        end = std::copy(piece.begin(), piece.end(), end);
    *end = '\n';
    std::atomic_signal_fence(std::memory_order_seq_cst);
    _filled = _filled + size;
    if (_unbuffered)
        flush();
    return isFull;
}

void LogLines::flush() noexcept {
    while (_written < _filled) {
        const ssize_t written = writeSome(_bytes.data() + _written, _filled - _written);
        if (written < 0)
            break;
        _written = _written + static_cast<std::size_t>(written);
    }
    clear();
}

void LogLines::stopBuffering() noexcept {
    _unbuffered = true;
    flush();
}

void LogLines::clear() noexcept {
    _filled = 0;
    _written = 0;
}

} // namespace brackwater
