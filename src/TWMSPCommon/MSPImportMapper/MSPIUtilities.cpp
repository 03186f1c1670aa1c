#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include "Platform/Exception.h"
#include "Platform/GregorianCalendar.h"
#include "TWMSPCommon/MSPImportMapper/IsoPrinter.h"
#include "TWMSPCommon/MSPImportMapper/IsoScanner.h"
#include "TWMSPCommon/MSPImportMapper/RecentResults.h"

#include <fmt/format.h>

namespace brackwater {
namespace {

using Field = std::optional<std::int64_t>;

std::string_view upToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

/// Stores a sub-match that is not empty; answers the unit's bit then, else 0.
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

// A fraction hides an offset that follows it, but not a "Z"; a lone "Z" was matched as the fraction.
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

/// The forms in which nearly all dates come, "YYYY-MM-DDThh:mm:ss" with nothing, "Z" or an offset "+hh:mm" behind it,
/// read at once; they mean what the patterns make of them. Nothing for any other text, which is left to the patterns.
std::optional<UnitMask> readUsualForm(MSPCDateComponents& components, std::string_view text) {
    constexpr std::string_view kForm = "0000-00-00T00:00:00";
    constexpr std::string_view kOffsetForm = "00:00";
    const auto matches = [](std::string_view part, std::string_view form) {
        for (std::size_t i = 0; i < form.size(); ++i)
            if (form[i] == '0' ? part[i] < '0' || part[i] > '9' : part[i] != form[i])
                return false;
        return true;
    };
    const auto number = [text](std::size_t at, std::size_t digits) {
        std::int64_t value = 0;
        for (const char digit : text.substr(at, digits))
            value = value * 10 + (digit - '0');
        return value;
    };
    const bool isUTC = text.size() == 20 && text.back() == 'Z';
    const bool hasOffset =
        text.size() == 25 && (text[19] == '+' || text[19] == '-') && matches(text.substr(20), kOffsetForm);
    if (!(text.size() == kForm.size() || isUTC || hasOffset) || !matches(text, kForm))
        return std::nullopt;
    components.year = number(0, 4);
    components.month = number(5, 2);
    components.day = number(8, 2);
    components.hour = number(11, 2);
    components.minute = number(14, 2);
    components.second = number(17, 2);
    constexpr UnitMask kRead = kDateUnits | kTimeUnits;
    if (isUTC)
        return kRead | storeUTC(components);
    if (hasOffset) {
        const std::int64_t sign = text[19] == '-' ? -1 : 1;
        components.setTimeZoneHour(sign * number(20, 2));
        components.setTimeZoneMinute(sign * number(23, 2));
    }
    components.fixUTC();
    return hasOffset ? kRead | MSPCTimeZoneHourUnit | MSPCTimeZoneMinuteUnit : kRead;
}

/// Components together with the mask of what was read into them.
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

/// What `convert` makes of a text in the system zone, from the last conversions where it is among them.
template <typename Result, typename Convert>
Result recentOrNew(RecentResults<ShortTextKey, Result>& recent, std::string_view text, Convert convert) {
    if (text.size() > ShortTextKey::kLongest)
        return convert();
    const ShortTextKey key(text);
    return recent.get(TimeZone::system(), key, key.hash(), convert);
}

std::optional<Date> dateFromMspdi(std::string_view text) {
    const Parsed parsed = parse(text, "MSPDI");
    assertThat(parsed.units != 0 && (parsed.units & MSPCTimeZoneMask) == 0,
               "Not a valid MSPDI date-time: '{}' (time zone?).", text);
    return MSPIUtilities::dateFromComponents(parsed.components);
}

std::string zelbFromDate(Date date, const TimeZone& zone, Date now) {
    MSPCDateComponents components(DateComponents::fromCivilTime(GregorianCalendar(zone).fieldsOfDate(date)));
    components.forceSystemTimezoneforDate(date, now);
    return iso::print(components, MSPCAllUnits);
}

UnitMask unitsOf(std::string_view text) {
    MSPCDateComponents components;
    return MSPIUtilities::updateDateTimeComponentsFromISODateTime(components, text);
}

} // namespace

UnitMask MSPIUtilities::updateDateTimeComponentsFromISODateTime(MSPCDateComponents& components, std::string_view text) {
    if (text.empty())
        return NSNotFound;
    if (const auto units = readUsualForm(components, text))
        return *units;
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
    static RecentResults<ShortTextKey, std::optional<Date>> recent;
    return recentOrNew(recent, text, [text] { return dateFromMspdi(text); });
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
    // The offset that is told depends on the present one as well.
    struct Key {
        std::uint64_t date = 0;
        std::int64_t offsetNow = 0;
        bool isDaylightNow = false;
        bool operator==(const Key&) const = default;
    };
    static RecentResults<Key, std::string> recent;
    const TimeZone zone = TimeZone::system();
    const Date now = Date::now();
    const Key key{std::bit_cast<std::uint64_t>(date->secondsSince1970), zone.secondsFromGMT(now),
                  zone.isDaylightSavingTime(now)};
    return recent.get(zone, key, key.date * 0x9E3779B97F4A7C15U, [&] { return zelbFromDate(*date, zone, now); });
}

std::optional<std::string> MSPIUtilities::mppToMspdiDateTime(std::optional<Date> date) {
    const auto zelb = mppToZelbDateTime(date);
    return zelb ? zelbToMspdiDateTime(*zelb) : std::nullopt;
}

std::optional<std::string> MSPIUtilities::zelbToMspdiDateTime(std::string_view text) {
    static RecentResults<ShortTextKey, std::optional<std::string>> recent;
    return recentOrNew(recent, text, [text] { return zelbToMspdiDateTime(text, 0); });
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
    // Where the move fails its answer has all bits set, and the fields are printed as they were read.
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
    const auto sign = [](auto order) { return order < 0 ? -1 : order > 0 ? 1 : 0; };
    if (text.empty() || other.empty())
        return sign(text.size() <=> other.size());
    const auto date = dateFromComponents(parse(text, "MSPDI").components);
    const auto otherDate = dateFromComponents(parse(other, "MSPDI").components);
    return sign(date <=> otherDate);
}

} // namespace brackwater
