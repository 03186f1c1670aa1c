#include "GanttOptions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <limits>
#include <utility>

namespace brackwater::inspect {

std::optional<ScaleStep> scaleStepOf(std::string_view word) {
    constexpr std::array<std::pair<std::string_view, ScaleStep>, 5> words{{{"days", ScaleStep::Days},
                                                                           {"weeks", ScaleStep::Weeks},
                                                                           {"months", ScaleStep::Months},
                                                                           {"quarters", ScaleStep::Quarters},
                                                                           {"years", ScaleStep::Years}}};
    const auto* const found = std::ranges::find(words, word, &std::pair<std::string_view, ScaleStep>::first);
    return found == words.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::uint16_t> dayOfText(std::string_view text) {
    using namespace std::chrono;
    constexpr sys_days dayZero = year(1983) / 12 / 31;
    const auto number = [text](std::size_t at, std::size_t size) -> std::optional<unsigned> {
        const std::string_view digits = text.substr(at, size);
        unsigned value = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        return error == std::errc() && end == digits.data() + digits.size() ? std::optional(value) : std::nullopt;
    };
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const auto yearNumber = number(0, 4), monthNumber = number(5, 2), dayNumber = number(8, 2);
    if (!yearNumber || !monthNumber || !dayNumber)
        return std::nullopt;
    const year_month_day date(year(static_cast<int>(*yearNumber)), month(*monthNumber), day(*dayNumber));
    if (!date.ok())
        return std::nullopt;
    const auto count = (sys_days(date) - dayZero).count();
    if (count < 0 || count > std::numeric_limits<std::uint16_t>::max())
        return std::nullopt;
    return static_cast<std::uint16_t>(count);
}

} // namespace brackwater::inspect
