#include "TWMSPCommon/MSPImportMapper/UsualDates.h"

#include "Platform/Saturating.h"
#include "TWMSPCommon/MSPCDateComponents.h"

#include <array>
#include <cmath>

namespace brackwater::usualdates {
namespace {

constexpr std::string_view kForm = "0000-00-00T00:00:00";
constexpr std::string_view kOffsetForm = "00:00";

// Years of four digits that need no leading zero, in the calendar of today.
constexpr std::int64_t kFirstYear = 1600;
constexpr std::int64_t kLastYear = 9999;

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool matches(std::string_view text, std::string_view form) {
    for (std::size_t i = 0; i < form.size(); ++i)
        if (form[i] == '0' ? !isDigit(text[i]) : text[i] != form[i])
            return false;
    return true;
}

std::int64_t twoDigits(std::string_view text, std::size_t at) { return (text[at] - '0') * 10 + (text[at + 1] - '0'); }

/// The text of a date of four-digit year, on the stack.
class Line {
public:
    explicit Line(const CivilTime& time) {
        put(time.year / 100);
        put(time.year % 100);
        put('-', time.month);
        put('-', time.day);
        put('T', time.hour);
        put(':', time.minute);
        put(':', time.second);
    }

    void character(char character) { _characters[_size++] = character; }
    void put(char before, std::int64_t number) {
        character(before);
        put(number);
    }
    [[nodiscard]] std::string text() const { return {_characters.data(), _size}; }

private:
    void put(std::int64_t number) {
        character(static_cast<char>('0' + number / 10));
        character(static_cast<char>('0' + number % 10));
    }

    std::array<char, 32> _characters;
    std::size_t _size = 0;
};

Date dateOfWallSeconds(std::int64_t wallSeconds, const TimeZone& zone) {
    return {static_cast<double>(wallSeconds - zone.secondsFromGMTAtWallTime(wallSeconds))};
}

std::optional<Line> lineOfWallSeconds(std::int64_t wallSeconds) {
    const CivilTime time = civilTimeFromWallSeconds(wallSeconds);
    if (time.year < kFirstYear || time.year > kLastYear)
        return std::nullopt;
    return Line(time);
}

} // namespace

std::optional<ZonedTime> read(std::string_view text) noexcept {
    using Zone = ZonedTime::Zone;
    const std::string_view zone = text.size() < kForm.size() ? std::string_view() : text.substr(kForm.size());
    ZonedTime time;
    if (zone == "Z")
        time.zone = Zone::UTC;
    else if (zone.size() == kOffsetForm.size() + 1)
        time.zone = Zone::Offset;
    else if (text.size() != kForm.size())
        return std::nullopt;
    if (!matches(text, kForm))
        return std::nullopt;
    if (time.zone == Zone::Offset) {
        if ((zone[0] != '+' && zone[0] != '-') || !matches(zone.substr(1), kOffsetForm))
            return std::nullopt;
        const std::int64_t sign = zone[0] == '-' ? -1 : 1;
        time.offsetHours = sign * twoDigits(zone, 1);
        time.offsetMinutes = sign * twoDigits(zone, 4);
    }
    time.fields.year = twoDigits(text, 0) * 100 + twoDigits(text, 2);
    time.fields.month = twoDigits(text, 5);
    time.fields.day = twoDigits(text, 8);
    time.fields.hour = twoDigits(text, 11);
    time.fields.minute = twoDigits(text, 14);
    time.fields.second = twoDigits(text, 17);
    return time;
}

std::optional<std::string> mspdiFromZelb(std::string_view text, const TimeZone& zone) {
    const auto time = read(text);
    const auto fields = time ? wallSecondsFromCivilTime(time->fields) : std::nullopt;
    if (!fields)
        return std::nullopt;
    // The offset is the one at the instant that the fields mean in the system zone, whatever zone the text tells.
    const Date inSystemZone = dateOfWallSeconds(*fields, zone);
    const std::int64_t told = time->offsetHours * 3600 + time->offsetMinutes * 60;
    const auto line = lineOfWallSeconds(*fields - told + zone.secondsFromGMT(inSystemZone));
    return line ? std::optional(line->text()) : std::nullopt;
}

std::optional<Date> dateFromMspdi(std::string_view text, const TimeZone& zone) {
    const auto time = read(text);
    if (!time || time->zone != ZonedTime::Zone::None)
        return std::nullopt;
    const auto wallSeconds = wallSecondsFromCivilTime(time->fields);
    if (!wallSeconds)
        return std::nullopt;
    return dateOfWallSeconds(*wallSeconds, zone);
}

std::optional<std::string> zelbFromDate(Date date, const TimeZone& zone) {
    const auto seconds = saturatingCut<std::int64_t>(std::floor(date.secondsSince1970));
    if (seconds > kLastWallSecond || seconds < -kLastWallSecond)
        return std::nullopt;
    auto line = lineOfWallSeconds(seconds + zone.secondsFromGMT(date));
    if (!line)
        return std::nullopt;
    const bool dependsOnNow = zone.isDaylightSavingTime(date);
    const std::int64_t offset = dependsOnNow ? offsetToldForDate(date, zone, Date::now()) : zone.secondsFromGMT(date);
    const std::int64_t minutes = offset / 60;
    if (minutes == 0) {
        line->character('Z');
        return line->text();
    }
    const std::int64_t magnitude = minutes < 0 ? -minutes : minutes;
    line->put(minutes < 0 ? '-' : '+', magnitude / 60);
    line->put(':', magnitude % 60);
    return line->text();
}

} // namespace brackwater::usualdates
