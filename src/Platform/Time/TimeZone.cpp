#include "Platform/Time/TimeZone.h"

#include "Platform/Time/PosixTimeZone.h"
#include "Platform/Time/TimeZoneRules.h"
#include "Platform/Values/Saturating.h"

#include <fmt/format.h>
#include <unicode/timezone.h>

#include <cmath>
#include <cstdlib>
#include <string_view>
#include <unordered_map>

namespace brackwater {
namespace {

using SharedRules = std::shared_ptr<const TimeZone::Rules>;

std::int64_t wholeSeconds(Date date) { return saturatingCut<std::int64_t>(std::floor(date.secondsSince1970)); }

SharedRules rulesOfUTC() {
    static const SharedRules rules = std::make_shared<TimeZone::Rules>("UTC", 0);
    return rules;
}

SharedRules rulesOfZone(std::unique_ptr<icu::TimeZone> zone) {
    // All zones that ICU creates have this class; its base class has no transitions.
    auto* basic = dynamic_cast<icu::BasicTimeZone*>(zone.get());
    if (!basic)
        return nullptr;
    std::ignore = zone.release();
    return std::make_shared<TimeZone::Rules>(std::unique_ptr<icu::BasicTimeZone>(basic));
}

/// The rules of a zone in ICU's table, or null. Each thread loads each zone once.
SharedRules rulesWithName(const std::string& name) {
    thread_local std::unordered_map<std::string, SharedRules> known;
    const auto found = known.find(name);
    if (found != known.end())
        return found->second;
    std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
    if (*zone == icu::TimeZone::getUnknown())
        return nullptr;
    SharedRules rules = rulesOfZone(std::move(zone));
    if (rules)
        known.emplace(name, rules);
    return rules;
}

bool isInZoneTable(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString canonical;
    UBool isSystemId = false;
    icu::TimeZone::getCanonicalID(icu::UnicodeString::fromUTF8(name), canonical, isSystemId, status);
    return U_SUCCESS(status) && isSystemId;
}

/// The zone name in a TZ text: ":Europe/Berlin" and "/usr/share/zoneinfo/Europe/Berlin" are "Europe/Berlin".
std::string zoneNameIn(std::string_view tz) {
    if (!tz.empty() && tz.front() == ':')
        tz.remove_prefix(1);
    constexpr std::string_view folder = "/zoneinfo/";
    const std::size_t at = tz.find(folder);
    if (!tz.empty() && tz.front() == '/' && at != std::string_view::npos)
        tz.remove_prefix(at + folder.size());
    return std::string(tz);
}

SharedRules rulesFromTZ(std::string_view tz) {
    const std::string name = zoneNameIn(tz);
    // A POSIX rule such as "GMT+5" is tried first, since ICU would interpret its sign the other way round.
    if (isInZoneTable(name))
        return rulesWithName(name);
    if (auto zone = zoneFromPosixRule(name))
        return rulesOfZone(std::move(zone));
    return rulesOfUTC();
}

SharedRules rulesOfMachine() {
    std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
    SharedRules rules = rulesOfZone(std::move(zone));
    return rules ? rules : rulesOfUTC();
}

constinit const TimeZone* heldSystemZone = nullptr;

} // namespace

TimeZone::TimeZone(std::shared_ptr<const Rules> rules) : _rules(std::move(rules)) {}

const TimeZone& TimeZone::system() {
    if (heldSystemZone != nullptr)
        return *heldSystemZone;
    struct Present {
        bool fromTZ = false;
        std::string tz;
        std::optional<TimeZone> zone;
    };
    thread_local Present present;
    const char* tz = std::getenv("TZ");
    const bool same = present.zone && present.fromTZ == (tz != nullptr) && (!tz || present.tz == tz);
    if (!same)
        present = tz ? Present{true, tz, TimeZone(rulesFromTZ(tz))} : Present{false, {}, TimeZone(rulesOfMachine())};
    return *present.zone;
}

SystemTimeZoneHold::SystemTimeZoneHold() : _zone(TimeZone::system()), _outer(heldSystemZone) {
    heldSystemZone = &_zone;
}

SystemTimeZoneHold::~SystemTimeZoneHold() { heldSystemZone = _outer; }

TimeZone TimeZone::forSecondsFromGMT(std::int64_t seconds) {
    if (seconds == 0)
        return TimeZone(std::make_shared<Rules>("GMT", 0));
    const std::int64_t minutes = std::abs(seconds / 60);
    const char sign = seconds < 0 ? '-' : '+';
    return TimeZone(std::make_shared<Rules>(fmt::format("GMT{}{:02}{:02}", sign, minutes / 60, minutes % 60), seconds));
}

std::optional<TimeZone> TimeZone::withName(const std::string& name) {
    SharedRules rules = rulesWithName(name);
    return rules ? std::optional(TimeZone(std::move(rules))) : std::nullopt;
}

std::string TimeZone::name() const { return _rules->name(); }

std::int64_t TimeZone::secondsFromGMT() const { return secondsFromGMT(Date::now()); }

std::int64_t TimeZone::secondsFromGMT(Date date) const { return _rules->offsetAt(wholeSeconds(date)).total; }

std::int64_t TimeZone::secondsFromGMTAtWallTime(std::int64_t wallSeconds) const {
    return _rules->totalOffsetAtWallTime(wallSeconds);
}

bool TimeZone::isDaylightSavingTime() const { return isDaylightSavingTime(Date::now()); }

bool TimeZone::isDaylightSavingTime(Date date) const { return _rules->offsetAt(wholeSeconds(date)).daylight != 0; }

double TimeZone::daylightSavingTimeOffset(Date date) const {
    return static_cast<double>(_rules->offsetAt(wholeSeconds(date)).daylight);
}

} // namespace brackwater
