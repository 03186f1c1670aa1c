#include "TWMSPCommon/MSPImportMapper/IsoScanner.h"

#include <charconv>
#include <limits>
#include <system_error>

namespace brackwater::iso {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// A position in a text that advances over what it matches.
class Cursor {
public:
    explicit Cursor(std::string_view text, std::size_t at = 0) : _text(text), _at(at) {}

    std::size_t position() const { return _at; }
    bool atEnd() const { return _at == _text.size(); }
    std::string_view since(std::size_t begin) const { return _text.substr(begin, _at - begin); }

    bool take(char expected) {
        if (atEnd() || _text[_at] != expected)
            return false;
        ++_at;
        return true;
    }

    std::string_view takeAny() { return _text.substr(_at++, 1); }

    std::string_view takeDigits() {
        const std::size_t begin = _at;
        while (!atEnd() && isDigit(_text[_at]))
            ++_at;
        return since(begin);
    }

private:
    std::string_view _text;
    std::size_t _at;
};

// "d*-d*-d*", after the optional "-".
bool takeDate(Cursor& cursor, DateMatch& match) {
    match.year = cursor.takeDigits();
    if (!cursor.take('-'))
        return false;
    match.month = cursor.takeDigits();
    if (!cursor.take('-'))
        return false;
    match.day = cursor.takeDigits();
    match.whole = cursor.since(0);
    return true;
}

// "((+|-)d*:d*)|Z"
bool takeZone(Cursor& cursor, TimeMatch& match) {
    const std::size_t begin = cursor.position();
    if (cursor.take('Z')) {
        match.zone = cursor.since(begin);
        return true;
    }
    Cursor ahead = cursor;
    if (!ahead.take('+') && !ahead.take('-'))
        return false;
    const std::string_view sign = ahead.since(begin);
    const std::string_view hour = ahead.takeDigits();
    if (!ahead.take(':'))
        return false;
    match.sign = sign;
    match.zoneHour = hour;
    match.zoneMinute = ahead.takeDigits();
    match.zone = ahead.since(begin);
    cursor = ahead;
    return true;
}

bool isOffset(const TimeMatch& match) { return !match.sign.empty(); }

// A lone "Z" after the seconds could be the fraction's character or the zone. The match has the same length either way,
// so the earlier group gets it. An offset there makes the longer match as zone, since a fraction would end before the
// offset's colon.
void takeFractionAndZone(Cursor& cursor, TimeMatch& match) {
    if (cursor.atEnd())
        return;
    TimeMatch withoutFraction = match;
    Cursor behindZone = cursor;
    if (takeZone(behindZone, withoutFraction) && isOffset(withoutFraction)) {
        match = withoutFraction;
        cursor = behindZone;
        return;
    }
    const std::size_t begin = cursor.position();
    cursor.takeAny();
    cursor.takeDigits();
    match.fraction = cursor.since(begin);
    takeZone(cursor, match);
}

std::size_t beginOfDigitsBefore(std::size_t end, std::string_view text) {
    while (end > 0 && isDigit(text[end - 1]))
        --end;
    return end;
}

// "(d*UNIT)?": digits without the unit after them are left for the next group.
std::string_view takeNumberBefore(char unit, Cursor& cursor) {
    Cursor ahead = cursor;
    const std::string_view digits = ahead.takeDigits();
    if (!ahead.take(unit))
        return {};
    cursor = ahead;
    return digits;
}

} // namespace

DateMatch scanDate(std::string_view text) noexcept {
    DateMatch match;
    Cursor behindSign(text);
    if (behindSign.take('-') && takeDate(behindSign, match))
        return match;
    match = {};
    Cursor cursor(text);
    return takeDate(cursor, match) ? match : DateMatch{};
}

std::optional<TimeMatch> scanTime(std::string_view text) noexcept {
    // The leftmost match begins with the digits before the first colon that is followed by digits and another colon.
    std::size_t colon = text.find(':');
    while (colon != std::string_view::npos) {
        Cursor cursor(text, colon + 1);
        TimeMatch match;
        match.minute = cursor.takeDigits();
        if (cursor.take(':')) {
            const std::size_t begin = beginOfDigitsBefore(colon, text);
            match.hour = text.substr(begin, colon - begin);
            match.second = cursor.takeDigits();
            takeFractionAndZone(cursor, match);
            match.whole = cursor.since(begin);
            return match;
        }
        colon = text.find(':', cursor.position());
    }
    return std::nullopt;
}

std::optional<DurationMatch> scanDuration(std::string_view text) noexcept {
    // Text already scanned after an earlier "P" contains no further "P", so the whole scan is linear.
    for (std::size_t begin = text.find('P'); begin != std::string_view::npos; begin = text.find('P', begin + 1)) {
        Cursor cursor(text, begin + 1);
        DurationMatch match;
        match.years = takeNumberBefore('Y', cursor);
        match.months = takeNumberBefore('M', cursor);
        match.days = takeNumberBefore('D', cursor);
        if (!cursor.take('T'))
            continue;
        match.hours = takeNumberBefore('H', cursor);
        match.minutes = takeNumberBefore('M', cursor);
        match.seconds = takeNumberBefore('S', cursor);
        match.whole = cursor.since(begin);
        return match;
    }
    return std::nullopt;
}

std::optional<DurationMatch> scanStrictDuration(std::string_view text) noexcept {
    Cursor cursor(text);
    DurationMatch match;
    if (!cursor.take('P') || !cursor.take('T'))
        return std::nullopt;
    match.hours = cursor.takeDigits();
    if (!cursor.take('H'))
        return std::nullopt;
    match.minutes = cursor.takeDigits();
    if (!cursor.take('M'))
        return std::nullopt;
    match.seconds = cursor.takeDigits();
    if (!cursor.take('S'))
        return std::nullopt;
    match.whole = cursor.since(0);
    return match;
}

std::int64_t numberOf(std::string_view digits) noexcept {
    std::int64_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::int64_t>::max() : number;
}

} // namespace brackwater::iso
