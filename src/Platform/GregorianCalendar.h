#pragma once

#include "Platform/Date.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace brackwater {

/// Wall-clock fields of the Gregorian calendar with its change from the Julian one in October 1582. The year counts
/// continuously (0 is 1 BC). Fields out of their range carry over when they are read as an instant.
struct CivilTime {
    std::int64_t year = 1;
    std::int64_t month = 1;
    std::int64_t day = 1;
    std::int64_t hour = 0;
    std::int64_t minute = 0;
    std::int64_t second = 0;

    friend bool operator==(const CivilTime&, const CivilTime&) = default;
};

/// A time zone: a named one with its rules, or a fixed offset. Copies are cheap; two of the same zone share its rules.
class TimeZone {
public:
    /// The system zone: from TZ, or the machine's setting. Follows a changed TZ.
    [[nodiscard]] static TimeZone system();
    [[nodiscard]] static TimeZone forSecondsFromGMT(std::int64_t seconds);
    [[nodiscard]] static std::optional<TimeZone> withName(const std::string& name);

    [[nodiscard]] std::string name() const;
    /// Offset east of Greenwich in seconds, daylight time included: now, and at an instant.
    [[nodiscard]] std::int64_t secondsFromGMT() const;
    [[nodiscard]] std::int64_t secondsFromGMT(Date date) const;
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

/// The Gregorian calendar in a zone. A wall time in a spring gap moves forward by the gap; an ambiguous wall time takes
/// the first reading.
class GregorianCalendar {
public:
    /// In the system zone.
    GregorianCalendar();
    explicit GregorianCalendar(TimeZone zone);

    [[nodiscard]] const TimeZone& timeZone() const { return _zone; }
    /// Nothing where the fields lie outside what an instant can hold.
    [[nodiscard]] std::optional<Date> dateFromFields(const CivilTime& fields) const;
    /// Fractions of a second are dropped towards the past.
    [[nodiscard]] CivilTime fieldsOfDate(Date date) const;
    /// 1 is Sunday, 7 is Saturday.
    [[nodiscard]] int weekdayOfDate(Date date) const;
    /// 00:00:00 of the date's day.
    [[nodiscard]] Date startOfDay(Date date) const;

private:
    TimeZone _zone;
};

} // namespace brackwater
