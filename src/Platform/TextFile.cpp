#include "Platform/TextFile.h"

#include <glib.h>

#include <array>
#include <cstddef>
#include <fstream>

namespace brackwater {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Length in bytes of the newline character that `text` begins with; 0 where it begins with another one.
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

// The library's check takes a zero byte, which is a character like any other, for the end.
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

std::optional<std::string> stringWithContentsOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string text;
    std::array<char, 65536> piece;
    do {
        file.read(piece.data(), piece.size());
        text.append(piece.data(), static_cast<std::size_t>(file.gcount()));
    } while (file);
    // A folder opens like a file, and only reading it fails.
    if (file.bad())
        return std::nullopt;
    if (text.starts_with(kByteOrderMark))
        text.erase(0, kByteOrderMark.size());
    if (!isUtf8(text))
        return std::nullopt;
    return text;
}

std::vector<std::string_view> componentsSeparatedByNewlines(std::string_view text) {
    std::vector<std::string_view> pieces;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = newlineLength(text.substr(at));
        if (length == 0) {
            ++at;
            continue;
        }
        pieces.push_back(text.substr(begin, at - begin));
        at += length;
        begin = at;
    }
    pieces.push_back(text.substr(begin));
    return pieces;
}

} // namespace brackwater
