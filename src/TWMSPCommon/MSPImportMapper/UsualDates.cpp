#include "TWMSPCommon/MSPImportMapper/UsualDates.h"

#include "Platform/Values/Saturating.h"
#include "TWMSPCommon/MSPCDateComponents.h"

#include <array>
#include <cmath>

namespace brackwater::usualdates {
namespace {

constexpr std::size_t kTimeSize = std::string_view("YYYY-MM-DDThh:mm:ss").size();
constexpr std::size_t kOffsetSize = std::string_view("+hh:mm").size();

// Four-digit years without leading zeros, in the Gregorian calendar.
constexpr std::int64_t kFirstYear = 1600;
constexpr std::int64_t kLastYear = 9999;

/// Parses characters at fixed positions and remembers whether all were as expected.
class Reader {
public:
    explicit Reader(const char* text) : _text(text) {}

    std::int64_t twoDigits(std::size_t at) { return digit(at) * 10 + digit(at + 1); }
    void wants(std::size_t at, char character) { _failed |= _text[at] != character; }
    [[nodiscard]] bool hasFailed() const { return _failed; }

private:
    std::int64_t digit(std::size_t at) {
        const auto value = static_cast<unsigned>(static_cast<unsigned char>(_text[at])) - '0';
        _failed |= value > 9;
        return value;
    }

    const char* _text;
    bool _failed = false;
};

/// The text of a date with a four-digit year, on the stack.
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
    ZonedTime time;
    if (text.size() == kTimeSize + 1 && text.back() == 'Z')
        time.zone = ZonedTime::Zone::UTC;
    else if (text.size() == kTimeSize + kOffsetSize)
        time.zone = ZonedTime::Zone::Offset;
    else if (text.size() != kTimeSize)
        return std::nullopt;

    Reader reader(text.data());
    time.fields.year = reader.twoDigits(0) * 100 + reader.twoDigits(2);
    reader.wants(4, '-');
    time.fields.month = reader.twoDigits(5);
    reader.wants(7, '-');
    time.fields.day = reader.twoDigits(8);
    reader.wants(10, 'T');
    time.fields.hour = reader.twoDigits(11);
    reader.wants(13, ':');
    time.fields.minute = reader.twoDigits(14);
    reader.wants(16, ':');
    time.fields.second = reader.twoDigits(17);
    if (time.zone == ZonedTime::Zone::Offset) {
        const std::int64_t sign = text[kTimeSize] == '-' ? -1 : 1;
        if (sign > 0)
            reader.wants(kTimeSize, '+');
        time.offsetHours = sign * reader.twoDigits(20);
        reader.wants(22, ':');
        time.offsetMinutes = sign * reader.twoDigits(23);
    }
    return reader.hasFailed() ? std::nullopt : std::optional(time);
}

std::optional<std::string> mspdiFromZelb(std::string_view text, const TimeZone& zone) {
    const auto time = read(text);
    const auto fields = time ? wallSecondsFromCivilTime(time->fields) : std::nullopt;
    if (!fields)
        return std::nullopt;
    // Uses the offset at the instant of the fields in the system zone, whatever zone is in the text.
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
