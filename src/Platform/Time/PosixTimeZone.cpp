#include "Platform/Time/PosixTimeZone.h"

#include <unicode/simpletz.h>

#include <optional>
#include <string>

namespace brackwater {
namespace {

constexpr int kMillisecondsPerSecond = 1000;
constexpr int kDefaultChangeTime = 2 * 3600;

/// Day and time of a yearly clock change: "M3.5.0/2" is the last Sunday of March at 2:00.
struct Change {
    int month = 0;   ///< 1 to 12
    int week = 0;    ///< 1 to 5, 5 being the last
    int weekday = 0; ///< 0 is Sunday
    int seconds = kDefaultChangeTime;
};

/// Parses a rule from left to right. An operation that does not match leaves the text unchanged.
class RuleReader {
public:
    explicit RuleReader(std::string_view text) : _text(text) {}

    bool atEnd() const { return _text.empty(); }

    bool take(char expected) {
        if (_text.empty() || _text.front() != expected)
            return false;
        _text.remove_prefix(1);
        return true;
    }

    /// A name of at least three letters, or any text in angle brackets.
    bool takeName() {
        if (!_text.empty() && _text.front() == '<') {
            const std::size_t end = _text.find('>');
            if (end == std::string_view::npos)
                return false;
            _text.remove_prefix(end + 1);
            return true;
        }
        std::size_t length = 0;
        while (length < _text.size() && isLetter(_text[length]))
            ++length;
        if (length < 3)
            return false;
        _text.remove_prefix(length);
        return true;
    }

    std::optional<int> takeNumber(int least, int greatest) {
        int number = 0;
        std::size_t length = 0;
        while (length < _text.size() && length < 4 && _text[length] >= '0' && _text[length] <= '9')
            number = number * 10 + (_text[length++] - '0');
        if (length == 0 || number < least || number > greatest)
            return std::nullopt;
        _text.remove_prefix(length);
        return number;
    }

    /// "[+-]h[:mm[:ss]]" in seconds.
    std::optional<int> takeTime() {
        const bool negative = take('-');
        if (!negative)
            take('+');
        const auto hours = takeNumber(0, 167);
        if (!hours)
            return std::nullopt;
        int seconds = *hours * 3600;
        for (int unit = 60; unit >= 1 && take(':'); unit /= 60) {
            const auto part = takeNumber(0, 59);
            if (!part)
                return std::nullopt;
            seconds += *part * unit;
        }
        return negative ? -seconds : seconds;
    }

    /// ",Mm.w.d[/time]"
    std::optional<Change> takeChange() {
        if (!take(',') || !take('M'))
            return std::nullopt;
        const auto month = takeNumber(1, 12);
        const auto week = month && take('.') ? takeNumber(1, 5) : std::nullopt;
        const auto weekday = week && take('.') ? takeNumber(0, 6) : std::nullopt;
        if (!weekday)
            return std::nullopt;
        const auto seconds = take('/') ? takeTime() : kDefaultChangeTime;
        if (!seconds)
            return std::nullopt;
        return Change{*month, *week, *weekday, *seconds};
    }

private:
    static bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

    std::string_view _text;
};

std::int8_t weekInMonth(const Change& change) { return static_cast<std::int8_t>(change.week == 5 ? -1 : change.week); }

} // namespace

std::unique_ptr<icu::TimeZone> zoneFromPosixRule(std::string_view rule) {
    RuleReader reader(rule);
    if (!reader.takeName())
        return nullptr;
    // POSIX counts offsets west of Greenwich.
    const auto west = reader.takeTime();
    if (!west)
        return nullptr;
    const int offset = -*west;
    const auto id = icu::UnicodeString::fromUTF8(std::string(rule));
    if (reader.atEnd())
        return std::make_unique<icu::SimpleTimeZone>(offset * kMillisecondsPerSecond, id);

    if (!reader.takeName())
        return nullptr;
    int daylightOffset = offset + 3600;
    Change start{3, 2, 0};
    Change end{11, 1, 0};
    RuleReader afterOffset = reader;
    if (const auto daylightWest = afterOffset.takeTime()) {
        daylightOffset = -*daylightWest;
        reader = afterOffset;
    }
    if (!reader.atEnd()) {
        const auto givenStart = reader.takeChange();
        const auto givenEnd = reader.takeChange();
        if (!givenStart || !givenEnd || !reader.atEnd())
            return nullptr;
        start = *givenStart;
        end = *givenEnd;
    }
    if (daylightOffset == offset)
        return std::make_unique<icu::SimpleTimeZone>(offset * kMillisecondsPerSecond, id);
    UErrorCode status = U_ZERO_ERROR;
    auto zone = std::make_unique<icu::SimpleTimeZone>(
        offset * kMillisecondsPerSecond, id, static_cast<std::int8_t>(start.month - 1), weekInMonth(start),
        static_cast<std::int8_t>(start.weekday + 1), start.seconds * kMillisecondsPerSecond,
        icu::SimpleTimeZone::WALL_TIME, static_cast<std::int8_t>(end.month - 1), weekInMonth(end),
        static_cast<std::int8_t>(end.weekday + 1), end.seconds * kMillisecondsPerSecond, icu::SimpleTimeZone::WALL_TIME,
        (daylightOffset - offset) * kMillisecondsPerSecond, status);
    return U_SUCCESS(status) ? std::move(zone) : nullptr;
}

} // namespace brackwater
