#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include "Platform/Time/GregorianCalendar.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPImportMapper/IsoPrinter.h"
#include "TWMSPCommon/MSPImportMapper/IsoScanner.h"
#include "TWMSPCommon/MSPImportMapper/UsualDates.h"

#include <fmt/format.h>

#include <compare>

namespace brackwater {
namespace {

using Field = std::optional<std::int64_t>;

std::string_view upToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

/// Stores a non-empty sub-match; returns the unit's bit, or 0 if it is empty.
UnitMask store(std::string_view digits, Field& field, UnitMask unit) {
    if (digits.empty())
        return 0;
    field = iso::numberOf(digits);
    return unit;
}

UnitMask storeUTC(MSPCDateComponents& components) {
    components.setTimeZoneHour(0);
    components.setTimeZoneMinute(0);
    components.setIsUTC(true);
    return MSPCTimeZoneUTCUnit;
}

UnitMask storeOffset(const iso::TimeMatch& match, MSPCDateComponents& components) {
    UnitMask units = 0;
    const std::int64_t sign = match.sign == "-" ? -1 : 1;
    if (!match.zoneHour.empty()) {
        components.setTimeZoneHour(sign * iso::numberOf(match.zoneHour));
        units |= MSPCTimeZoneHourUnit;
    }
    if (!match.zoneMinute.empty()) {
        components.setTimeZoneMinute(sign * iso::numberOf(match.zoneMinute));
        units |= MSPCTimeZoneMinuteUnit;
    }
    components.fixUTC();
    return units;
}

// A fraction hides an offset after it, but not a "Z"; a lone "Z" was matched as the fraction.
UnitMask storeZone(const iso::TimeMatch& match, MSPCDateComponents& components) {
    if (match.fraction == "Z")
        return storeUTC(components);
    const bool isFraction = match.fraction.size() >= 2 && match.fraction.front() == '.';
    if (isFraction)
        return match.zone == "Z" ? storeUTC(components) : 0;
    return storeOffset(match, components);
}

UnitMask storeTime(const iso::TimeMatch& match, MSPCDateComponents& components) {
    return store(match.hour, components.hour, kHourUnit) | store(match.minute, components.minute, kMinuteUnit) |
           store(match.second, components.second, kSecondUnit) | storeZone(match, components);
}

UnitMask storeUsual(const usualdates::ZonedTime& time, MSPCDateComponents& components) {
    components.year = time.fields.year;
    components.month = time.fields.month;
    components.day = time.fields.day;
    components.hour = time.fields.hour;
    components.minute = time.fields.minute;
    components.second = time.fields.second;
    constexpr UnitMask kRead = kDateUnits | kTimeUnits;
    if (time.zone == usualdates::ZonedTime::Zone::UTC)
        return kRead | storeUTC(components);
    const bool hasOffset = time.zone == usualdates::ZonedTime::Zone::Offset;
    if (hasOffset) {
        components.setTimeZoneHour(time.offsetHours);
        components.setTimeZoneMinute(time.offsetMinutes);
    }
    components.fixUTC();
    return hasOffset ? kRead | MSPCTimeZoneHourUnit | MSPCTimeZoneMinuteUnit : kRead;
}

/// Components with the mask of the parsed fields.
struct Parsed {
    MSPCDateComponents components;
    UnitMask units;
};

Parsed parse(std::string_view text, std::string_view form) {
    Parsed parsed;
    parsed.units = MSPIUtilities::updateDateTimeComponentsFromISODateTime(parsed.components, text);
    assertThat(parsed.units != NSNotFound, "Failed to make MSPCDateComponents from {} date-time: '{}'.", form, text);
    return parsed;
}

bool isRead(UnitMask units) { return units != 0 && units != NSNotFound; }

UnitMask unitsOf(std::string_view text) {
    MSPCDateComponents components;
    return MSPIUtilities::updateDateTimeComponentsFromISODateTime(components, text);
}

} // namespace

UnitMask MSPIUtilities::updateDateTimeComponentsFromISODateTime(MSPCDateComponents& components, std::string_view text) {
    if (text.empty())
        return NSNotFound;
    if (const auto usual = usualdates::read(text))
        return storeUsual(*usual, components);
    text = upToNul(text);
    const iso::DateMatch date = iso::scanDate(text);
    const UnitMask dateUnits = store(date.year, components.year, kYearUnit) |
                               store(date.month, components.month, kMonthUnit) |
                               store(date.day, components.day, kDayUnit);
    if (date.whole.size() == text.size())
        return dateUnits;
    const auto time = iso::scanTime(text);
    if (!time)
        return dateUnits;
    if (dateUnits != 0) {
        const std::size_t end = date.whole.size();
        const bool timeFollows = text[end] == 'T' && time->whole.data() == text.data() + end + 1;
        if (!timeFollows)
            failAssertion({});
    }
    return dateUnits | storeTime(*time, components);
}

UnitMask MSPIUtilities::updateDateTimeComponentsFromISODuration(MSPCDateComponents& components, std::string_view text) {
    if (text.empty())
        return NSNotFound;
    const auto match = iso::scanDuration(upToNul(text));
    if (!match)
        return NSNotFound;
    return store(match->years, components.year, kYearUnit) | store(match->months, components.month, kMonthUnit) |
           store(match->days, components.day, kDayUnit) | store(match->hours, components.hour, kHourUnit) |
           store(match->minutes, components.minute, kMinuteUnit) |
           store(match->seconds, components.second, kSecondUnit);
}

std::optional<std::string> MSPIUtilities::stringFromComponents(const MSPCDateComponents& components,
                                                               UnitMask unitFlags) {
    if (unitFlags == NSNotFound)
        return std::nullopt;
    return iso::print(components, unitFlags);
}

std::optional<Date> MSPIUtilities::dateFromComponents(const DateComponents& components) {
    return GregorianCalendar().dateFromFields(components.civilTime());
}

std::optional<MSPCDateComponents> MSPIUtilities::componentsFromISODateTime(std::string_view text) {
    MSPCDateComponents components;
    if (updateDateTimeComponentsFromISODateTime(components, text) == NSNotFound)
        return std::nullopt;
    return components;
}

bool MSPIUtilities::isIsoiDateTime(std::string_view text) { return isRead(unitsOf(text)); }

bool MSPIUtilities::isZelbDateTime(std::string_view text) {
    const UnitMask units = unitsOf(text);
    return isRead(units) && (units & MSPCTimeZoneMask) != 0;
}

bool MSPIUtilities::isMspdiDateTime(std::string_view text) {
    const UnitMask units = unitsOf(text);
    return isRead(units) && (units & MSPCTimeZoneMask) == 0;
}

bool MSPIUtilities::isMspdiDuration(std::string_view text) {
    MSPCDateComponents components;
    return updateDateTimeComponentsFromISODuration(components, text) != NSNotFound;
}

std::optional<Date> MSPIUtilities::mspdiToMppDateTime(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    if (const auto date = usualdates::dateFromMspdi(text, TimeZone::system()))
        return date;
    const Parsed parsed = parse(text, "MSPDI");
    assertThat(parsed.units != 0 && (parsed.units & MSPCTimeZoneMask) == 0,
               "Not a valid MSPDI date-time: '{}' (time zone?).", text);
    return dateFromComponents(parsed.components);
}

std::optional<Date> MSPIUtilities::zelbToMppDateTime(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    const auto [components, units] = parse(text, "ZELB");
    if ((units & MSPCTimeZoneMask) == 0)
        return dateFromComponents(components);
    return GregorianCalendar::dateFromFields(components.civilTime(),
                                             components.isUTC() ? 0 : components.secondsFromGMT());
}

std::optional<std::string> MSPIUtilities::mppToZelbDateTime(std::optional<Date> date) {
    if (!date)
        return std::nullopt;
    const TimeZone& zone = TimeZone::system();
    if (auto text = usualdates::zelbFromDate(*date, zone))
        return text;
    MSPCDateComponents components(DateComponents::fromCivilTime(GregorianCalendar(zone).fieldsOfDate(*date)));
    components.forceSystemTimezoneforDate(date);
    return iso::print(components, MSPCAllUnits);
}

std::optional<std::string> MSPIUtilities::mppToMspdiDateTime(std::optional<Date> date) {
    const auto zelb = mppToZelbDateTime(date);
    return zelb ? zelbToMspdiDateTime(*zelb) : std::nullopt;
}

std::optional<std::string> MSPIUtilities::zelbToMspdiDateTime(std::string_view text) {
    if (auto mspdi = usualdates::mspdiFromZelb(text, TimeZone::system()))
        return mspdi;
    return zelbToMspdiDateTime(text, 0);
}

std::optional<std::string> MSPIUtilities::zelbToMspdiDateOnly(std::string_view text) {
    return zelbToMspdiDateTime(text, kDateUnits);
}

std::optional<std::string> MSPIUtilities::zelbToMspdiDateStartTime(std::string_view text) {
    auto date = zelbToMspdiDateOnly(text);
    if (date)
        *date += "T00:00:00";
    return date;
}

std::optional<std::string> MSPIUtilities::zelbToMspdiDateEndTime(std::string_view text) {
    auto date = zelbToMspdiDateOnly(text);
    if (date)
        *date += "T23:59:59";
    return date;
}

std::optional<std::string> MSPIUtilities::zelbToMspdiDateTime(std::string_view text, UnitMask calendarUnits) {
    if (text.empty())
        return std::nullopt;
    MSPCDateComponents components = parse(text, "ZELB").components;
    // If the conversion fails, its result has all bits set, and the fields are printed as parsed.
    const UnitMask moved = components.convertToSystemTimezone();
    const UnitMask wanted = calendarUnits == 0 ? MSPCAllUnits : calendarUnits;
    return iso::print(components, moved & wanted & ~MSPCTimeZoneMask);
}

std::optional<std::string> MSPIUtilities::mspdiToZelbDateTime(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    auto [components, units] = parse(text, "MSPDI");
    if ((units & MSPCTimeZoneMask) == 0)
        units = components.forceSystemTimezoneforDate(std::nullopt);
    return iso::print(components, units | MSPCTimeZoneMask);
}

std::optional<std::string> MSPIUtilities::mspdiDateTimeToString(std::string_view text) {
    const auto date = mspdiToMppDateTime(text);
    if (!date)
        return std::nullopt;
    const CivilTime utc = GregorianCalendar::fieldsOfDate(*date, 0);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02} +0000", utc.year, utc.month, utc.day, utc.hour, utc.minute,
                       utc.second);
}

int MSPIUtilities::compareMspdiDateTime(std::string_view text, std::string_view other) {
    const auto sign = [](auto order) { return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0; };
    if (text.empty() || other.empty())
        return sign(text.size() <=> other.size());
    const auto date = dateFromComponents(parse(text, "MSPDI").components);
    const auto otherDate = dateFromComponents(parse(other, "MSPDI").components);
    return sign(date <=> otherDate);
}

} // namespace brackwater
