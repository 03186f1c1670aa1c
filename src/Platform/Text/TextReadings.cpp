#include "Platform/Text/TextReadings.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace brackwater {

namespace {

constexpr bool isBlank(char byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }
constexpr bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

// A text without leading blanks and sign.
struct Signed {
    const char* first;
    const char* last;
    bool negative;
};

Signed withoutBlanksAndSign(std::string_view text) {
    const char* first = text.data();
    const char* const last = first + text.size();
    while (first != last && isBlank(*first))
        ++first;
    if (first != last && (*first == '-' || *first == '+'))
        return {first + 1, last, *first == '-'};
    return {first, last, false};
}

template <typename Integer>
std::optional<Scanned<Integer>> scanWhole(std::string_view text) {
    using Limits = std::numeric_limits<Integer>;
    const Signed start = withoutBlanksAndSign(text);
    // Counts downwards, since the lowest value has no positive counterpart.
    Integer value = 0;
    bool beyond = false;
    const char* at = start.first;
    for (; at != start.last && isDigit(*at); ++at) {
        const auto digit = static_cast<Integer>(*at - '0');
        if (value < (Limits::min() + digit) / 10)
            beyond = true;
        if (!beyond)
            value = static_cast<Integer>(value * 10 - digit);
    }
    if (at == start.first)
        return std::nullopt;
    if (beyond)
        value = Limits::min();
    if (!start.negative)
        value = value == Limits::min() ? Limits::max() : static_cast<Integer>(-value);
    return Scanned<Integer>{value, static_cast<std::size_t>(at - text.data())};
}

bool beginsWithNumber(const char* first, const char* last) {
    if (first == last)
        return false;
    return isDigit(*first) || (*first == '.' && first + 1 != last && isDigit(first[1]));
}

// Whether a decimal number outside the range of a double is above it; otherwise it is too close to zero.
bool isTooLarge(const char* first, const char* last) {
    double order = 0.0; // power of ten of the first significant digit, plus one
    bool behindPoint = false;
    bool counting = false;
    const char* at = first;
    for (; at != last && (isDigit(*at) || *at == '.'); ++at) {
        if (*at == '.')
            behindPoint = true;
        else if (!counting && *at == '0')
            order -= behindPoint ? 1.0 : 0.0;
        else {
            counting = true;
            order += behindPoint ? 0.0 : 1.0;
        }
    }
    if (at != last)
        order += static_cast<double>(integerValue({at + 1, static_cast<std::size_t>(last - at - 1)}));
    return order > 0.0;
}

} // namespace

std::optional<Scanned<std::int64_t>> scanInteger(std::string_view text) noexcept {
    return scanWhole<std::int64_t>(text);
}

std::optional<Scanned<std::int32_t>> scanInt(std::string_view text) noexcept { return scanWhole<std::int32_t>(text); }

std::optional<Scanned<double>> scanDouble(std::string_view text) noexcept {
    const Signed start = withoutBlanksAndSign(text);
    if (!beginsWithNumber(start.first, start.last)) // "inf", "nan" and a second sign are not numbers here
        return std::nullopt;
    double value = 0.0;
    const auto [end, fault] = std::from_chars(start.first, start.last, value);
    if (fault == std::errc::result_out_of_range)
        value = isTooLarge(start.first, end) ? HUGE_VAL : 0.0;
    return Scanned<double>{start.negative ? -value : value, static_cast<std::size_t>(end - text.data())};
}

std::int64_t integerValue(std::string_view text) noexcept {
    const auto scanned = scanInteger(text);
    return scanned ? scanned->value : 0;
}

std::int32_t intValue(std::string_view text) noexcept {
    const auto scanned = scanInt(text);
    return scanned ? scanned->value : 0;
}

double doubleValue(std::string_view text) noexcept {
    const auto scanned = scanDouble(text);
    return scanned ? scanned->value : 0.0;
}

bool boolValue(std::string_view text) noexcept {
    Signed rest = withoutBlanksAndSign(text);
    while (rest.first != rest.last && *rest.first == '0')
        ++rest.first;
    if (rest.first == rest.last)
        return false;
    const char byte = *rest.first;
    return byte == 'Y' || byte == 'y' || byte == 'T' || byte == 't' || isDigit(byte);
}

} // namespace brackwater
