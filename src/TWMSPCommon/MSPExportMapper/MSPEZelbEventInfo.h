#pragma once

#include "Platform/Date.h"
#include "Platform/XMLElement.h"

#include <string>

namespace brackwater {

/// One event of the source's exceptions: a span of days, in most cases with times of day.
class MSPEZelbEventInfo {
public:
    /// From an `event` element; failed assertions where its times do not make an event.
    explicit MSPEZelbEventInfo(XMLElement zelbEvent);
    /// Dates: first day 00:00:00, last day 23:59:59. Times: seconds since midnight.
    MSPEZelbEventInfo(Date fromDate, Date toDate, double start, double end) noexcept
        : _hasTimeRange(true), _fromDate(fromDate), _toDate(toDate), _start(start), _end(end) {}
    /// Without times of day.
    MSPEZelbEventInfo(Date fromDate, Date toDate) noexcept : _fromDate(fromDate), _toDate(toDate) {}

    [[nodiscard]] bool hasTimeRange() const noexcept { return _hasTimeRange; }
    [[nodiscard]] Date fromDate() const noexcept { return _fromDate; }
    void setFromDate(Date date) noexcept { _fromDate = date; }
    [[nodiscard]] Date toDate() const noexcept { return _toDate; }
    void setToDate(Date date) noexcept { _toDate = date; }
    [[nodiscard]] double start() const noexcept { return _start; }
    [[nodiscard]] double end() const noexcept { return _end; }
    [[nodiscard]] std::string description() const;

private:
    bool _hasTimeRange = false;
    Date _fromDate;
    Date _toDate;
    double _start = 0;
    double _end = 0;
};

} // namespace brackwater
