#pragma once

#include "Platform/Time/Date.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace brackwater {

/// A time zone: a named one with its rules, or a fixed offset. Copies are cheap and share the rules.
class TimeZone {
public:
    /// The system zone: from TZ (a zone name, the path of a zone file, or a POSIX rule), or the machine's setting if TZ
    /// is not set. Follows changes of TZ. A TZ that names no zone means UTC, as in the C library. The reference is good
    /// until this thread asks again, or until the hold ends that answers.
    [[nodiscard]] static const TimeZone& system();
    [[nodiscard]] static TimeZone forSecondsFromGMT(std::int64_t seconds);
    [[nodiscard]] static std::optional<TimeZone> withName(const std::string& name);

    [[nodiscard]] std::string name() const;
    /// Offset east of Greenwich in seconds, including daylight saving time: now, and at an instant.
    [[nodiscard]] std::int64_t secondsFromGMT() const;
    [[nodiscard]] std::int64_t secondsFromGMT(Date date) const;
    /// Offset for a local time, given in seconds since 1970-01-01T00:00:00 local time: the one before the clock change,
    /// both for a skipped time and for a repeated one.
    [[nodiscard]] std::int64_t secondsFromGMTAtWallTime(std::int64_t wallSeconds) const;
    [[nodiscard]] bool isDaylightSavingTime() const;
    [[nodiscard]] bool isDaylightSavingTime(Date date) const;
    /// Seconds that daylight saving time adds at that instant; 0 outside it.
    [[nodiscard]] double daylightSavingTimeOffset(Date date) const;

    class Rules;
    explicit TimeZone(std::shared_ptr<const Rules> rules);
    [[nodiscard]] const Rules& rules() const { return *_rules; }

private:
    std::shared_ptr<const Rules> _rules;
};

/// Freezes the system zone for its lifetime, for all threads: an export needs it several times per date, and each
/// lookup searches the whole environment. No other thread may read dates while a hold begins or ends.
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
