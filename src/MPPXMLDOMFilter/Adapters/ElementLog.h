#pragma once

#include "Platform/Log/Log.h"

#include <fmt/compile.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

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

    /// Of all texts together.
    [[nodiscard]] consteval std::size_t size() const {
        std::size_t sum = 0;
        for (const std::string_view text : texts)
            sum += text.size();
        return sum;
    }

    std::array<std::string_view, Count + 1> texts{};
};

/// Logs a line of texts: `logElement(FMT_COMPILE("..."), ...)`. Each task logs tens of lines, so nothing is formatted:
/// the texts are copied straight into the log's buffer, those of the format by their known sizes.
template <typename Format, typename... Texts>
void logElement(const Format&, const Texts&... given) {
    static constexpr std::size_t count = sizeof...(given);
    static constexpr ElementLogTexts<count> between{
        std::string_view(fmt::string_view(Format()).data(), fmt::string_view(Format()).size())};
    const std::array<std::string_view, count> texts{std::string_view(given)...};
    if (char* to = beginLogLine((between.size() + ... + std::string_view(given).size()))) {
        const auto copy = [&to](std::string_view text) {
            std::memcpy(to, text.data(), text.size());
            to += text.size();
        };
        [&]<std::size_t... I>(std::index_sequence<I...>) { ((copy(between.texts[I]), copy(texts[I])), ...); }
        (std::make_index_sequence<count>());
        copy(between.texts[count]);
        endLogLine();
        return;
    }
    std::array<std::string_view, 2 * count + 1> pieces{between.texts[0]};
    for (std::size_t i = 0; i < count; ++i) {
        pieces[2 * i + 1] = texts[i];
        pieces[2 * i + 2] = between.texts[i + 1];
    }
    logPieces(pieces);
}

/// The prefix of an element's log line: the first element of a record opens its block.
[[nodiscard]] inline std::string_view logMark(std::string_view name) noexcept {
    return name == "UID" ? std::string_view("Mapping") : std::string_view("       ");
}

} // namespace brackwater
