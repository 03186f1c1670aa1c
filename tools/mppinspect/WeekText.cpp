#include "WeekText.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {

constexpr std::size_t kDaySize = 60, kMostRanges = 5;

std::string textOfDays(const Week& week, std::string_view untold) {
    constexpr std::array names{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    const auto textOf = [&](std::size_t day) { return week.at(day) ? rangesText(*week.at(day)) : std::string(untold); };
    std::vector<std::string> parts;
    for (std::size_t day = 0; day < week.size();) {
        const std::string text = textOf(day);
        std::size_t last = day;
        while (last + 1 < week.size() && textOf(last + 1) == text)
            ++last;
        const std::string days = last == day ? names.at(day) : fmt::format("{}-{}", names.at(day), names.at(last));
        if (!text.empty())
            parts.push_back(fmt::format("{} {}", days, text));
        day = last + 1;
    }
    return fmt::format("{}", fmt::join(parts, ", "));
}

} // namespace

std::vector<TimeRange> rangesAt(ByteView block, std::size_t offset,
                                const std::function<void(std::string_view)>& complain) {
    constexpr std::size_t startsAt = 6, lengthsAt = 18;
    std::vector<TimeRange> list;
    std::size_t number = *block.u16(offset);
    if (number > kMostRanges) {
        complain("a day has more ranges than fit");
        number = kMostRanges;
    }
    std::uint64_t total = 0;
    for (std::size_t i = 0; i < number; ++i) {
        const std::uint32_t start = *block.u16(offset + startsAt + 2 * i);
        const std::uint32_t length = *block.u32(offset + lengthsAt + 4 * i);
        total += length;
        list.push_back({start, start + length});
    }
    if (number > 0 && total != *block.u32(offset + 2))
        complain("the total of a day's ranges is not their sum");
    return list;
}

Week weekAt(ByteView block, std::size_t offset, const std::function<void(std::string_view)>& complain) {
    Week days;
    for (std::size_t day = 0; day < days.size(); ++day) {
        const std::size_t dayAt = offset + day * kDaySize;
        if (*block.u16(dayAt) == 0)
            days.at(day) = rangesAt(block, dayAt + 2, complain);
    }
    return days;
}

std::string rangesText(const std::vector<TimeRange>& ranges) {
    if (ranges.empty())
        return "free";
    std::vector<std::string> texts;
    texts.reserve(ranges.size());
    for (const TimeRange& range : ranges)
        texts.push_back(fmt::format("{}-{}", timeText(range.start), timeText(range.end)));
    return fmt::format("{}", fmt::join(texts, " "));
}

std::string weekText(const Week& week) {
    const std::string text = textOfDays(week, "");
    return text.empty() ? "inherited" : text;
}

std::string weekText(const Calendar& calendar) {
    if (calendar.baseId)
        return calendar.hasOwnHours ? weekText(calendar.week) : "inherited";
    const bool tellsDays = calendar.hasOwnHours && std::ranges::any_of(calendar.week, &DayRanges::has_value);
    return tellsDays ? textOfDays(calendar.week, "default hours") : "default hours";
}

} // namespace brackwater::inspect
