#pragma once

#include "Platform/Time/Date.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace brackwater {

/// A time zone: a named one with its rules, or a fixed offset. Copies are cheap; two of the same zone share its rules.
class TimeZone {
public:
    /// The system zone: from TZ (a zone's name, the path of its file, or a POSIX rule), or the machine's setting where
    /// TZ is not set. Follows a changed TZ. A TZ that names no zone is UTC, as it is for the C library.
    [[nodiscard]] static TimeZone system();
    [[nodiscard]] static TimeZone forSecondsFromGMT(std::int64_t seconds);
    [[nodiscard]] static std::optional<TimeZone> withName(const std::string& name);

    [[nodiscard]] std::string name() const;
    /// Offset east of Greenwich in seconds, daylight time included: now, and at an instant.
    [[nodiscard]] std::int64_t secondsFromGMT() const;
    [[nodiscard]] std::int64_t secondsFromGMT(Date date) const;
    /// Offset with which a wall clock is read, in seconds since 1970-01-01T00:00:00 of that clock: the one before the
    /// change both for a time that a change skips and for one that it repeats.
    [[nodiscard]] std::int64_t secondsFromGMTAtWallTime(std::int64_t wallSeconds) const;
    [[nodiscard]] bool isDaylightSavingTime() const;
    [[nodiscard]] bool isDaylightSavingTime(Date date) const;
    /// Seconds that daylight time adds at that instant; 0 outside it.
    [[nodiscard]] double daylightSavingTimeOffset(Date date) const;

    class Rules;
    explicit TimeZone(std::shared_ptr<const Rules> rules);
    [[nodiscard]] const Rules& rules() const { return *_rules; }

private:
    std::shared_ptr<const Rules> _rules;
};

/// While one lives, the system zone is the one of its beginning: an export asks for it many times for each date, and
/// each look at the environment goes through all of it.
class SystemTimeZoneHold {
public:
    SystemTimeZoneHold();
    ~SystemTimeZoneHold();
    SystemTimeZoneHold(const SystemTimeZoneHold&) = delete;
    SystemTimeZoneHold& operator=(const SystemTimeZoneHold&) = delete;

private:
    TimeZone _zone;
    const TimeZone* _outer;
};

} // namespace brackwater
