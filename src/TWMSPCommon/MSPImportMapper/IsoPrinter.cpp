#include "TWMSPCommon/MSPImportMapper/IsoPrinter.h"

#include <array>
#include <charconv>
#include <limits>

namespace brackwater::iso {
namespace {

using Field = std::optional<std::int64_t>;

/// A text on the stack, large enough for eight fields of at most 20 characters and their separators.
class Line {
public:
    bool isEmpty() const { return _length == 0; }
    std::string text() const { return {_characters.data(), _length}; }

    void character(char c) { _characters[_length++] = c; }

    void number(std::int64_t value) {
        char* const begin = _characters.data() + _length;
        _length += static_cast<std::size_t>(std::to_chars(begin, begin + kLongestNumber, value).ptr - begin);
    }

    void twoDigits(std::int64_t value) {
        if (value >= 0 && value < 10)
            character('0');
        number(value);
    }

private:
    static constexpr std::size_t kLongestNumber = 20;

    std::array<char, 200> _characters;
    std::size_t _length = 0;
};

std::int64_t valueOf(const Field& field) { return field.value_or(std::numeric_limits<std::int64_t>::max()); }

void printDate(Line& line, const MSPCDateComponents& components, UnitMask units) {
    if (units & kYearUnit)
        line.number(valueOf(components.year));
    if (!line.isEmpty())
        line.character('-');
    if (units & kMonthUnit)
        line.twoDigits(valueOf(components.month));
    if (!line.isEmpty())
        line.character('-');
    if (units & kDayUnit)
        line.twoDigits(valueOf(components.day));
}

void printTime(Line& line, const MSPCDateComponents& components, UnitMask units) {
    if (units & kHourUnit)
        line.twoDigits(valueOf(components.hour));
    if (!line.isEmpty())
        line.character(':');
    if (units & kMinuteUnit)
        line.twoDigits(valueOf(components.minute));
    if (!line.isEmpty())
        line.character(':');
    if (units & kSecondUnit)
        line.twoDigits(valueOf(components.second));
}

std::int64_t magnitude(std::int64_t value) {
    return value == std::numeric_limits<std::int64_t>::min() ? std::numeric_limits<std::int64_t>::max()
                                                             : std::abs(value);
}

void printZone(Line& line, const MSPCDateComponents& components, UnitMask units) {
    if ((units & MSPCTimeZoneUTCUnit) && components.isUTC()) {
        line.character('Z');
        return;
    }
    const std::int64_t hour = units & MSPCTimeZoneHourUnit ? components.timeZoneHour() : 0;
    const std::int64_t minute = units & MSPCTimeZoneMinuteUnit ? components.timeZoneMinute() : 0;
    line.character(hour < 0 || minute < 0 ? '-' : '+');
    line.twoDigits(magnitude(hour));
    line.character(':');
    line.twoDigits(magnitude(minute));
}

} // namespace

std::string print(const MSPCDateComponents& components, UnitMask units) {
    Line line;
    if (units & kDateUnits)
        printDate(line, components, units);
    if (!line.isEmpty() && (units & (kTimeUnits | MSPCTimeZoneMask)))
        line.character('T');
    if (units & kTimeUnits)
        printTime(line, components, units);
    if (units & MSPCTimeZoneMask)
        printZone(line, components, units);
    return line.text();
}

} // namespace brackwater::iso
