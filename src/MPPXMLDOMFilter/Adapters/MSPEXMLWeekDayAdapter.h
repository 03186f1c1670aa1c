#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPCalendarTimeRange.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace brackwater {

/// "WeekDay": the working ranges of a day of the week. Its record is the list of them.
class MSPEXMLWeekDayAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLWeekDayAdapter, MSPEXMLRecordAdapter<MPPRangeList>>,
      public std::enable_shared_from_this<MSPEXMLWeekDayAdapter> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLWeekDayAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// Takes "WorkingTime".
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
    /// "WorkingTimes": this adapter itself. "WorkingTime": a new MSPEXMLWorkingTimeAdapter.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name) override;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;

    /// 1 is Sunday, 7 is Saturday, -1 is not set.
    [[nodiscard]] std::int32_t dayType() const noexcept { return _dayType; }
    [[nodiscard]] bool dayWorking() const noexcept { return _dayWorking; }

private:
    std::int32_t _dayType = -1;
    bool _dayWorking = false;
};

} // namespace brackwater
