#include "loss-report/WallClock.h"

#include "Platform/Time/CivilTime.h"

#include <fmt/format.h>

#include <array>

namespace brackwater::lossreport {

namespace {

constexpr std::int64_t kDay = kSecondsOfCivilDay;
constexpr std::int64_t kFirstDay = 5112 * kDay; // 1983-12-31, since 1970
constexpr std::int64_t kLastDayNumber = 0xFFFF;

/// Scans a text from the front.
class Scanner {
public:
    explicit Scanner(std::string_view text) : _rest(text) {}

    bool take(char c) {
        if (_rest.empty() || _rest.front() != c)
            return false;
        _rest.remove_prefix(1);
        return true;
    }
    /// A number of at least one digit, small enough for any date.
    std::optional<std::int64_t> number() {
        constexpr std::size_t mostDigits = 9;
        std::size_t length = 0;
        std::int64_t value = 0;
        for (; length < _rest.size() && length < mostDigits && _rest[length] >= '0' && _rest[length] <= '9'; ++length)
            value = value * 10 + (_rest[length] - '0');
        _rest.remove_prefix(length);
        return length > 0 ? std::optional(value) : std::nullopt;
    }
    [[nodiscard]] std::string_view rest() const noexcept { return _rest; }

private:
    std::string_view _rest;
};

std::optional<CivilTime> fieldsOf(Scanner& scanner) {
    CivilTime time;
    const std::array<std::int64_t*, 6> fields{&time.year, &time.month,  &time.day,
                                              &time.hour, &time.minute, &time.second};
    constexpr std::string_view before = " --T::";
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i == 3 && scanner.rest().empty())
            break;
        if (i > 0 && !scanner.take(before[i]))
            return std::nullopt;
        const auto number = scanner.number();
        if (!number)
            return std::nullopt;
        *fields.at(i) = *number;
    }
    return time;
}

// Seconds east of Greenwich.
std::optional<std::int64_t> offsetOf(Scanner& scanner) {
    if (scanner.take('.'))
        (void)scanner.number();
    if (scanner.take('Z'))
        return 0;
    const bool west = scanner.take('-');
    if (!west && !scanner.take('+'))
        return std::nullopt;
    const auto hours = scanner.number();
    (void)scanner.take(':');
    const std::int64_t seconds = hours.value_or(0) * 3600 + scanner.number().value_or(0) * 60;
    return west ? -seconds : seconds;
}

} // namespace

std::int64_t WallTime::day() const noexcept { return floorDivide(seconds, kDay); }
std::int64_t WallTime::secondOfDay() const noexcept { return floorRemainder(seconds, kDay); }
bool WallTime::isInRange() const noexcept { return seconds >= 0 && day() <= kLastDayNumber; }

std::string WallTime::text() const {
    const CivilTime time = civilTimeFromWallSeconds(seconds + kFirstDay);
    std::string text =
        fmt::format("{:04}-{:02}-{:02} {:02}:{:02}", time.year, time.month, time.day, time.hour, time.minute);
    if (time.second != 0)
        text += fmt::format(":{:02}", time.second);
    return text;
}

WallTime wallTimeOf(const inspect::Date& date) {
    return {std::int64_t{date.days} * kDay + std::int64_t{date.tenths} * 6};
}

std::optional<WallTime> WallClock::read(std::string_view text) const {
    Scanner scanner(text);
    const auto fields = fieldsOf(scanner);
    const auto wall = fields ? wallSecondsFromCivilTime(*fields) : std::nullopt;
    if (!wall)
        return std::nullopt;
    const auto offset = offsetOf(scanner);
    if (!offset)
        return WallTime{*wall - kFirstDay};
    const std::int64_t instant = *wall - *offset;
    const Date date{static_cast<double>(instant)};
    const std::int64_t local = instant + _zone.secondsFromGMT(date);
    // Of two instants with the same local time, the zone's conversion gives the first.
    const bool isSecond = local - _zone.secondsFromGMTAtWallTime(local) != instant;
    return WallTime{local - kFirstDay, isSecond, _zone.isDaylightSavingTime(date)};
}

} // namespace brackwater::lossreport
