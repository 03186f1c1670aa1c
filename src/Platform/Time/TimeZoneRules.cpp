#include "Platform/Time/TimeZoneRules.h"

#include "Platform/Time/CivilTime.h"
#include "Platform/Values/Saturating.h"

#include <unicode/simpletz.h>
#include <unicode/tztrans.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cmath>

namespace brackwater {
namespace {

constexpr double kMillisecondsPerSecond = 1000.0;
// The table ends at 2150-01-01: long after the dates of plans, but quick to build.
constexpr double kTableEnd = 5'680'281'600.0 * kMillisecondsPerSecond;

std::int64_t wholeSeconds(double milliseconds) {
    return saturatingCut<std::int64_t>(std::floor(milliseconds / kMillisecondsPerSecond));
}

TimeZone::Rules::Offset offsetFrom(std::int32_t rawMilliseconds, std::int32_t daylightMilliseconds) {
    return {(std::int64_t{rawMilliseconds} + daylightMilliseconds) / 1000, daylightMilliseconds / 1000};
}

std::string nameOf(const icu::TimeZone& zone) {
    icu::UnicodeString id;
    std::string name;
    return zone.getID(id).toUTF8String(name);
}

} // namespace

TimeZone::Rules::Rules(std::string name, std::int64_t secondsFromGMT)
    : _name(std::move(name)), _initial{secondsFromGMT, 0} {}

TimeZone::Rules::Rules(std::unique_ptr<icu::BasicTimeZone> zone) : _name(nameOf(*zone)), _zone(std::move(zone)) {
    readTransitions();
}

void TimeZone::Rules::readTransitions() {
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t raw = 0;
    std::int32_t daylight = 0;
    const double beginning = -static_cast<double>(kLastWallSecond) * kMillisecondsPerSecond;
    _zone->getOffset(beginning, false, raw, daylight, status);
    _initial = offsetFrom(raw, daylight);

    icu::TimeZoneTransition transition;
    double time = beginning;
    while (_zone->getNextTransition(time, false, transition)) {
        time = transition.getTime();
        if (time >= kTableEnd) {
            _hasMore = true;
            return;
        }
        append(wholeSeconds(time), offsetFrom(transition.getTo()->getRawOffset(), transition.getTo()->getDSTSavings()));
    }
}

void TimeZone::Rules::append(std::int64_t instant, Offset offset) {
    const Offset before = _transitions.empty() ? _initial : _transitions.back().offset;
    _transitions.push_back({instant, instant + std::max(before.total, offset.total), offset});
}

template <auto time>
std::size_t TimeZone::Rules::indexBehind(std::int64_t seconds) const {
    const auto next = std::upper_bound(_transitions.begin(), _transitions.end(), seconds,
                                       [](std::int64_t value, const Transition& t) { return value < t.*time; });
    return static_cast<std::size_t>(next - _transitions.begin());
}

TimeZone::Rules::Offset TimeZone::Rules::offsetAt(std::int64_t seconds) const {
    const std::size_t next = indexBehind<&Transition::instant>(seconds);
    if (next == 0)
        return _initial;
    if (next < _transitions.size() || !_hasMore) [[likely]]
        return _transitions[next - 1].offset;
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t raw = 0;
    std::int32_t daylight = 0;
    _zone->getOffset(static_cast<double>(seconds) * kMillisecondsPerSecond, false, raw, daylight, status);
    return offsetFrom(raw, daylight);
}

std::int64_t TimeZone::Rules::totalOffsetAtWallTime(std::int64_t wallSeconds) const {
    const std::size_t next = indexBehind<&Transition::wallTime>(wallSeconds);
    if (next == 0)
        return _initial.total;
    if (next < _transitions.size() || !_hasMore) [[likely]]
        return _transitions[next - 1].offset.total;
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t raw = 0;
    std::int32_t daylight = 0;
    _zone->getOffsetFromLocal(static_cast<double>(wallSeconds) * kMillisecondsPerSecond, UCAL_TZ_LOCAL_FORMER,
                              UCAL_TZ_LOCAL_FORMER, raw, daylight, status);
    return offsetFrom(raw, daylight).total;
}

std::unique_ptr<icu::TimeZone> TimeZone::Rules::newIcuZone() const {
    if (_zone)
        return std::unique_ptr<icu::TimeZone>(_zone->clone());
    const double milliseconds = static_cast<double>(_initial.total) * kMillisecondsPerSecond;
    return std::make_unique<icu::SimpleTimeZone>(saturatingCut<std::int32_t>(milliseconds),
                                                 icu::UnicodeString::fromUTF8(_name));
}

} // namespace brackwater
