#pragma once

#include "Platform/Date.h"
#include "TWMSPCommon/MSPExportMapper/MSPEWorkingTime.h"

#include <string>

namespace brackwater {

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

} // namespace brackwater
