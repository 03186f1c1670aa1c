#pragma once

#include "Platform/Log/Log.h"

#include <fmt/compile.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace brackwater {

/// A format of texts around `Count` times "{}", parsed at compile time.
template <std::size_t Count>
struct ElementLogTexts {
    consteval explicit ElementLogTexts(std::string_view format) {
        for (std::size_t i = 0; i < Count; ++i) {
            const std::size_t place = format.find("{}");
            texts[i] = format.substr(0, place);
            format.remove_prefix(place + 2); // a format with fewer places does not compile
        }
        texts[Count] = format;
    }

    std::array<std::string_view, Count + 1> texts{};
};

/// Logs a line of texts: `logElement(FMT_COMPILE("..."), ...)`. Each task logs tens of lines, so nothing is formatted:
/// the texts are copied piece by piece to the log's buffer.
template <typename Format, typename... Texts>
void logElement(const Format&, const Texts&... texts) {
    static constexpr ElementLogTexts<sizeof...(texts)> between{
        std::string_view(fmt::string_view(Format()).data(), fmt::string_view(Format()).size())};
    std::array<std::string_view, 2 * sizeof...(texts) + 1> pieces{between.texts[0]};
    std::size_t count = 0;
    // The checker does not compute the size.
    // cppcheck-suppress containerOutOfBounds
    ((pieces[2 * count + 1] = texts, pieces[2 * count + 2] = between.texts[count + 1], ++count), ...);
    logPieces(pieces);
}

/// The prefix of an element's log line: the first element of a record opens its block.
[[nodiscard]] inline std::string_view logMark(std::string_view name) noexcept {
    return name == "UID" ? std::string_view("Mapping") : std::string_view("       ");
}

} // namespace brackwater
