#include "Platform/Time/DateFormatter.h"

#include "Platform/Time/TimeZoneRules.h"
#include "Platform/Values/Exception.h"

#include <unicode/gregocal.h>
#include <unicode/parsepos.h>
#include <unicode/smpdtfmt.h>

namespace brackwater {
namespace {

constexpr double kMillisecondsPerSecond = 1000.0;

icu::UnicodeString unicode(std::string_view text) {
    return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

/// No date is longer; ICU's lengths have 32 bits, so it must not get longer texts.
constexpr std::size_t kLongestText = 10'000;

} // namespace

struct DateFormatter::Contents {
    Contents(std::string_view pattern, const TimeZone& zone) {
        UErrorCode status = U_ZERO_ERROR;
        format = std::make_unique<icu::SimpleDateFormat>(unicode(pattern), status);
        auto calendar = std::make_unique<icu::GregorianCalendar>(status);
        if (U_FAILURE(status))
            failAssertion(fmt::format("Failed to make a date formatter: {}", u_errorName(status)));
        calendar->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
        calendar->setSkippedWallTimeOption(UCAL_WALLTIME_LAST);
        format->adoptCalendar(calendar.release());
        format->adoptTimeZone(zone.rules().newIcuZone().release());
    }

    std::unique_ptr<icu::SimpleDateFormat> format;
};

DateFormatter::DateFormatter(std::string_view pattern, const TimeZone& zone)
    : _contents(std::make_unique<Contents>(pattern, zone)) {}

DateFormatter::~DateFormatter() = default;

std::string DateFormatter::stringFromDate(Date date) const {
    icu::UnicodeString text;
    _contents->format->format(date.secondsSince1970 * kMillisecondsPerSecond, text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

std::optional<Date> DateFormatter::dateFromWholeString(std::string_view text) const {
    if (text.empty() || text.size() > kLongestText)
        return std::nullopt;
    const icu::UnicodeString unicodeText = unicode(text);
    const auto read = [&unicodeText](const icu::SimpleDateFormat& format) -> std::optional<Date> {
        icu::ParsePosition position(0);
        const double milliseconds = format.parse(unicodeText, position);
        if (position.getErrorIndex() >= 0 || position.getIndex() != unicodeText.length())
            return std::nullopt;
        return Date{milliseconds / kMillisecondsPerSecond};
    };
    // Rejects out-of-range fields, but accepts local times that a clock change skips. ICU rejects both or neither, so
    // the fields are first checked in a zone without clock changes.
    icu::SimpleDateFormat strict(*_contents->format);
    strict.setLenient(false);
    strict.setTimeZone(*icu::TimeZone::getGMT());
    return read(strict) ? read(*_contents->format) : std::nullopt;
}

} // namespace brackwater
