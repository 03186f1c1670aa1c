#pragma once

#include <string>
#include <vector>

namespace brackwater {

/// One span of a day.
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

} // namespace brackwater
