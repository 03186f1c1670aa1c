#include "TWMSPCommon/MSPCDateTimeConverter.h"

#include "Platform/Log/Log.h"
#include "Platform/Text/RegularExpression.h"
#include "Platform/Text/WhiteSpace.h"
#include "Platform/Time/DateFormatter.h"
#include "Platform/Time/TimeZone.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/ProcessState.h"

#include <algorithm>
#include <utility>

namespace brackwater {
namespace {

constexpr std::string_view kZonedPattern = "yyyy-MM-dd'T'HH:mm:ssZ";
constexpr std::string_view kDateTimePattern = "yyyy-MM-dd'T'HH:mm:ss";
constexpr std::string_view kDatePattern = "yyyy-MM-dd";

// Zone and pattern are kept for the lifetime of the process; the log shows the zone once.

const TimeZone& capturedSystemZone() {
    static const TimeZone zone = TimeZone::system();
    if (!std::exchange(processState().isZoneLogged, true))
        logLine("Running in {}", zone.name());
    return zone;
}

const RegularExpression& offsetPattern() {
    static const RegularExpression pattern(R"([\+\-]{1}[:digit:]{2}(:[:digit:]{2}){0,2}$)");
    return pattern;
}

const RegularExpression& formatterOffsetPattern() {
    static const RegularExpression pattern(R"([\+\-]{1}[:digit:]{4,6}$)");
    return pattern;
}

std::optional<RegularExpression::Range> onlyMatch(const RegularExpression& pattern, std::string_view text) {
    const auto matches = pattern.matchesInString(text);
    if (matches.empty())
        return std::nullopt;
    assertThat(matches.size() == 1, "[matches count] == 1");
    return matches.front();
}

bool hasTime(std::string_view text) { return text.find('T') != std::string_view::npos; }

/// "+01:00" becomes "+0100", "Z" becomes "+00": the forms that the formatter parses.
std::string withFormatterOffset(std::string_view text) {
    std::string copy(text);
    if (copy.back() == 'Z') {
        copy.replace(copy.size() - 1, 1, "+00");
    } else if (const auto offset = onlyMatch(offsetPattern(), text)) {
        const auto begin = copy.begin() + static_cast<std::ptrdiff_t>(offset->location);
        const auto end = begin + static_cast<std::ptrdiff_t>(offset->length);
        copy.erase(std::remove(begin, end, ':'), end);
    }
    return copy;
}

/// Removes the first two digits. They may be of any script, with several bytes each.
std::string_view takeTwoDigits(std::string_view& digits) {
    const auto isFirstByte = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; };
    std::size_t end = 0;
    for (int digit = 0; digit < 2 && end < digits.size(); ++digit)
        end = static_cast<std::size_t>(
            std::find_if(digits.begin() + static_cast<std::ptrdiff_t>(end) + 1, digits.end(), isFirstByte) -
            digits.begin());
    const std::string_view taken = digits.substr(0, end);
    digits.remove_prefix(end);
    return taken;
}

TimeZone zoneToWriteIn(bool forceUTC) {
    const auto gmt = forceUTC ? TimeZone::withName("GMT") : std::nullopt;
    return gmt ? *gmt : TimeZone::system();
}

} // namespace

void MSPCDateTimeConverter::initialize() { static_cast<void>(capturedSystemZone()); }

std::optional<Date> MSPCDateTimeConverter::mppFromZelbDateTime(std::string_view text) {
    text = trimmed(text);
    if (text.empty())
        return std::nullopt;
    if (!hasTime(text))
        return mppFromZelbDateOnly(text);
    return DateFormatter(kZonedPattern).dateFromWholeString(withFormatterOffset(text));
}

std::optional<Date> MSPCDateTimeConverter::mppFromZelbDateOnly(std::string_view text) {
    return mppFromMspdiDateOnly(text);
}

std::optional<std::string> MSPCDateTimeConverter::mspdiFromZelbDateTime(std::string_view text) {
    return mspdiFromMppDateTime(mppFromZelbDateTime(text));
}

std::optional<std::string> MSPCDateTimeConverter::mspdiFromZelbDateOnly(std::string_view text) {
    return mspdiFromMppDateOnly(mppFromZelbDateOnly(text));
}

std::optional<Date> MSPCDateTimeConverter::mppFromMspdiDateTime(std::string_view text) {
    text = trimmed(text);
    if (text.empty())
        return std::nullopt;
    if (!hasTime(text))
        return mppFromMspdiDateOnly(text);
    return DateFormatter(kDateTimePattern).dateFromWholeString(text);
}

std::optional<Date> MSPCDateTimeConverter::mppFromMspdiDateOnly(std::string_view text) {
    text = trimmed(text);
    if (text.empty())
        return std::nullopt;
    return DateFormatter(kDatePattern).dateFromWholeString(text);
}

std::optional<std::string> MSPCDateTimeConverter::zelbFromMspdiDateTime(std::string_view text, bool forceUTC) {
    return zelbFromMppDateTime(mppFromMspdiDateTime(text), forceUTC);
}

std::optional<std::string> MSPCDateTimeConverter::zelbFromMspdiDateOnly(std::string_view text, bool forceUTC) {
    return zelbFromMppDateOnly(mppFromMspdiDateOnly(text), forceUTC);
}

std::optional<std::string> MSPCDateTimeConverter::zelbFromMppDateTime(std::optional<Date> date, bool forceUTC) {
    if (!date)
        return std::nullopt;
    const std::string text = DateFormatter(kZonedPattern, zoneToWriteIn(forceUTC)).stringFromDate(*date);
    return ensureISOTimeZoneFormat(text, forceUTC);
}

std::optional<std::string> MSPCDateTimeConverter::zelbFromMppDateOnly(std::optional<Date> date, bool forceUTC) {
    if (!date)
        return std::nullopt;
    const std::string text = DateFormatter(kDatePattern, zoneToWriteIn(forceUTC)).stringFromDate(*date);
    return text.substr(0, text.find('T'));
}

std::optional<std::string> MSPCDateTimeConverter::mspdiFromMppDateTime(std::optional<Date> date) {
    if (!date)
        return std::nullopt;
    return DateFormatter(kDateTimePattern, capturedSystemZone()).stringFromDate(*date);
}

std::optional<std::string> MSPCDateTimeConverter::mspdiFromMppDateOnly(std::optional<Date> date) {
    if (!date)
        return std::nullopt;
    return DateFormatter(kDatePattern, capturedSystemZone()).stringFromDate(*date);
}

std::string MSPCDateTimeConverter::ensureISOTimeZoneFormat(std::string_view text, bool forceUTC) {
    assertThat(!text.empty(), "No date string specified.");
    const auto offset = onlyMatch(formatterOffsetPattern(), text);
    std::string result(text);
    if (!offset)
        return result + (hasTime(text) ? "Z" : "T00:00:00Z");
    if (forceUTC)
        return result.replace(offset->location, offset->length, "Z");

    std::string_view digits = text.substr(offset->location + 1, offset->length - 1);
    result.erase(offset->location + 1);
    result.append(takeTwoDigits(digits)).append(":").append(takeTwoDigits(digits)).append(":");
    return result.append(digits.empty() ? "00" : digits);
}

} // namespace brackwater
