#pragma once

#include "Platform/Time/Date.h"
#include "Platform/Xml/XMLElement.h"

#include <string>
#include <vector>

namespace brackwater {

/// One working span of a day.
class MSPEWorkingTime {
public:
    /// Seconds since midnight.
    MSPEWorkingTime(double fromTime, double toTime) noexcept : _fromTime(fromTime), _toTime(toTime) {}

    [[nodiscard]] double fromTime() const noexcept { return _fromTime; }
    [[nodiscard]] double toTime() const noexcept { return _toTime; }
    [[nodiscard]] std::string description() const;

    friend bool operator==(const MSPEWorkingTime&, const MSPEWorkingTime&) = default;

private:
    double _fromTime;
    double _toTime;
};

using MSPEWorkingTimes = std::vector<MSPEWorkingTime>;

/// One resulting exception: a span of days with one list of working times.
class MSPEExceptionInfo {
public:
    MSPEExceptionInfo(Date fromDate, Date toDate) noexcept : _fromDate(fromDate), _toDate(toDate) {}

    [[nodiscard]] Date fromDate() const noexcept { return _fromDate; }
    void setFromDate(Date date) noexcept { _fromDate = date; }
    [[nodiscard]] Date toDate() const noexcept { return _toDate; }
    void setToDate(Date date) noexcept { _toDate = date; }
    [[nodiscard]] MSPEWorkingTimes& workingTimes() noexcept { return _workingTimes; }
    [[nodiscard]] const MSPEWorkingTimes& workingTimes() const noexcept { return _workingTimes; }
    [[nodiscard]] std::string description() const;

private:
    Date _fromDate;
    Date _toDate;
    MSPEWorkingTimes _workingTimes;
};

/// One event among the source's exceptions: a span of days, usually with times of day.
class MSPEZelbEventInfo {
public:
    /// From an `event` element; failed assertions if its times do not make an event.
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
