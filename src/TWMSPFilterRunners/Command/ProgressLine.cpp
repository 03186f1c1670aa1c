#include "TWMSPFilterRunners/Command/ProgressLine.h"

#include "Platform/Text/VisibleText.h"

#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace brackwater {

namespace {

constexpr auto kPause = std::chrono::milliseconds(100);
constexpr std::array<std::string_view, 4> kPhaseNames = {"loading", "mapping", "writing", "comparing"};
constexpr std::string_view kNameEnd = ": ";
constexpr std::string_view kEraseLine = "\r\x1b[K";

std::size_t terminalWidth() {
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

/// The end of a text, at most `most` bytes, in whole characters.
std::string endOf(const std::string& text, std::size_t most) {
    if (text.size() <= most)
        return text;
    std::size_t start = text.size() - most;
    while (start < text.size() && (static_cast<unsigned char>(text[start]) & 0xC0) == 0x80)
        ++start;
    return text.substr(start);
}

void print(std::string_view text) {
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
    static_cast<void>(std::fflush(stderr));
}

} // namespace

ProgressLine::ProgressLine(bool isShown) : _isShown(isShown && isatty(STDERR_FILENO) == 1) {}

void ProgressLine::show(std::size_t done, std::size_t all, std::string_view bundle, const ProgressSlot& slot) {
    const auto now = std::chrono::steady_clock::now();
    if (!_isShown || now < _next)
        return;
    _next = now + kPause;
    const std::size_t phase = slot.phase.load(std::memory_order_relaxed);
    const std::uint32_t percent = slot.percent.load(std::memory_order_relaxed);
    const std::string counts = fmt::format("{} of {} done; ", done, all);
    std::string step(kPhaseNames.at(phase % kPhaseNames.size()));
    if (percent != ProgressSlot::kNotKnown)
        step += fmt::format(" {} %", percent);
    // A line wider than the terminal could not be erased.
    const std::size_t most = terminalWidth() - 1;
    const std::size_t taken = counts.size() + step.size() + kNameEnd.size();
    const std::string name = taken < most ? endOf(visibleText(bundle), most - taken) : std::string();
    const std::string line = fmt::format("{}{}{}{}", counts, name, name.empty() ? "" : kNameEnd, step);
    print(fmt::format("{}{}", kEraseLine, std::string_view(line).substr(0, most)));
    _stands = true;
}

void ProgressLine::clear() {
    if (_stands)
        print(kEraseLine);
    _stands = false;
}

} // namespace brackwater
