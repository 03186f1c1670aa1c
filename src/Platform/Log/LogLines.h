#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace brackwater {

/// Writes the whole text to standard error, and waits where that is not ready for it. What standard error does not take
/// is lost: there is nowhere left to tell it. May be called from a signal handler.
void writeToStandardError(std::string_view bytes) noexcept;

/// Log lines on their way to standard error. A signal handler may flush between any two steps: a line counts only once
/// it stands whole in the buffer, and leaves it only once it is written.
class LogLines {
public:
    /// True where the buffer was full before and had to be written out.
    bool append(std::string_view prefix, std::span<const std::string_view> pieces) noexcept;
    void flush() noexcept;
    /// From here on each line is written at once.
    void stopBuffering() noexcept;
    [[nodiscard]] bool isBuffering() const noexcept { return !_unbuffered; }
    /// Forgets the lines without writing them.
    void clear() noexcept;

private:
    std::array<char, std::size_t{1} << 16> _bytes{};
    volatile std::size_t _filled = 0;
    volatile std::size_t _written = 0;
    volatile bool _unbuffered = false;
};

} // namespace brackwater
