#include "ByteView.h"

#include <fmt/format.h>
#include <glib.h>

#include <algorithm>
#include <bit>
#include <memory>

namespace brackwater::inspect {

namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
constexpr std::uint32_t kFirstHighSurrogate = 0xD800, kFirstLowSurrogate = 0xDC00, kPastSurrogates = 0xE000;

} // namespace

std::optional<std::int32_t> ByteView::i32(std::size_t offset) const {
    const auto value = u32(offset);
    if (!value)
        return std::nullopt;
    return std::bit_cast<std::int32_t>(*value);
}

std::optional<double> ByteView::f64(std::size_t offset) const {
    const auto value = number<std::uint64_t>(offset);
    if (!value)
        return std::nullopt;
    return std::bit_cast<double>(*value);
}

std::optional<Guid> ByteView::guid(std::size_t offset) const {
    if (!has(offset, 16))
        return std::nullopt;
    Guid guid;
    std::ranges::copy(_bytes.subspan(offset, 16), guid.begin());
    return guid;
}

bool ByteView::bit(std::size_t number) const noexcept {
    const std::size_t byte = number / 8;
    return byte < _bytes.size() && (_bytes[byte] >> (number % 8) & 1) != 0;
}

ByteView ByteView::part(std::size_t offset, std::size_t count) const noexcept {
    if (offset >= _bytes.size())
        return {};
    return _bytes.subspan(offset, std::min(count, _bytes.size() - offset));
}

std::string ByteView::text16() const {
    std::string text;
    std::uint32_t high = 0; // a high surrogate that waits for its low one
    for (std::size_t offset = 0; has(offset, 2); offset += 2) {
        const std::uint32_t unit = *u16(offset);
        const bool isLow = unit >= kFirstLowSurrogate && unit < kPastSurrogates;
        if (high != 0 && !isLow)
            appendUtf8(text, kReplacement);
        if (high != 0 && isLow)
            appendUtf8(text, 0x10000 + ((high - kFirstHighSurrogate) << 10) + (unit - kFirstLowSurrogate));
        const bool isHigh = unit >= kFirstHighSurrogate && unit < kFirstLowSurrogate;
        const bool paired = high != 0 && isLow;
        high = isHigh ? unit : 0;
        if (unit == 0)
            break;
        if (!isHigh && !paired)
            appendUtf8(text, unit);
    }
    if (high != 0)
        appendUtf8(text, kReplacement);
    return text;
}

std::string ByteView::text8(unsigned codePage) const {
    const auto end = std::ranges::find(_bytes, std::uint8_t{0});
    return fromCodePage(std::string(_bytes.begin(), end), codePage);
}

std::string ByteView::hex(std::size_t most) const {
    std::string digits;
    for (const std::uint8_t byte : part(0, most).span())
        digits += fmt::format("{:02x}", byte);
    if (size() > most)
        digits += "...";
    return digits;
}

void appendUtf8(std::string& text, std::uint32_t codePoint) {
    if ((codePoint >= kFirstHighSurrogate && codePoint < kPastSurrogates) || codePoint > 0x10FFFF)
        codePoint = kReplacement;
    const auto put = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto tail = [&](int shift) { put(0x80 | (codePoint >> shift & 0x3F)); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0 | codePoint >> 6), tail(0);
    } else if (codePoint < 0x10000) {
        put(0xE0 | codePoint >> 12), tail(6), tail(0);
    } else {
        put(0xF0 | codePoint >> 18), tail(12), tail(6), tail(0);
    }
}

std::string fromCodePage(std::string_view bytes, unsigned codePage) {
    if (std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return std::string(bytes);
    const std::string page = fmt::format("CP{}", codePage);
    const std::unique_ptr<char, decltype(&g_free)> converted(
        g_convert(bytes.data(), static_cast<gssize>(bytes.size()), "UTF-8", page.c_str(), nullptr, nullptr, nullptr),
        &g_free);
    if (converted)
        return converted.get();
    std::string text;
    for (const char c : bytes)
        appendUtf8(text, static_cast<unsigned char>(c) < 0x80 ? static_cast<unsigned char>(c) : kReplacement);
    return text;
}

} // namespace brackwater::inspect
