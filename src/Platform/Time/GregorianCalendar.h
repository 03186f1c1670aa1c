#pragma once

#include "Platform/Time/CivilTime.h"
#include "Platform/Time/Date.h"
#include "Platform/Time/TimeZone.h"

#include <cstdint>
#include <optional>

namespace brackwater {

/// The Gregorian calendar in a zone. A local time in a spring gap moves forward by the gap; an ambiguous one is the
/// earlier instant.
class GregorianCalendar {
public:
    /// In the system zone.
    GregorianCalendar();
    explicit GregorianCalendar(TimeZone zone);

    [[nodiscard]] const TimeZone& timeZone() const { return _zone; }
    /// Nothing if the fields exceed the range of an instant.
    [[nodiscard]] std::optional<Date> dateFromFields(const CivilTime& fields) const;
    /// Fractions of a second are rounded down.
    [[nodiscard]] CivilTime fieldsOfDate(Date date) const;
    /// 1 is Sunday, 7 is Saturday.
    [[nodiscard]] int weekdayOfDate(Date date) const;
    /// 00:00:00 of the date's day.
    [[nodiscard]] Date startOfDay(Date date) const;

    /// The same conversion in a zone with a fixed offset, in seconds east of Greenwich.
    [[nodiscard]] static std::optional<Date> dateFromFields(const CivilTime& fields, std::int64_t secondsFromGMT);
    [[nodiscard]] static CivilTime fieldsOfDate(Date date, std::int64_t secondsFromGMT);

private:
    [[nodiscard]] std::int64_t wallSecondsOfDate(Date date) const;

    TimeZone _zone;
};

} // namespace brackwater
