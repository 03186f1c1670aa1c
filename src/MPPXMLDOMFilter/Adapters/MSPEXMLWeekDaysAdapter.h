#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPCalendar.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace brackwater {

/// "WorkingTime": one working range.
class MSPEXMLWorkingTimeAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLWorkingTimeAdapter, MSPEXMLRecordAdapter<MPPCalendarTimeRange>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLWorkingTimeAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;

    /// "08:30:45" as 08:30: seconds are dropped. Nothing if the text does not have two colons.
    [[nodiscard]] static std::optional<MPPCalendarTime> newMppCalendarTimeFromMspdiTime(ElementText text);
};

/// Adds the child "WorkingTime" of a day or an exception to its list of ranges.
void addWorkingTimeToRanges(MPPRangeList& ranges, const MSPEXMLAdapter& child);
/// Creates a "WorkingTime" whose range is in the list.
[[nodiscard]] std::shared_ptr<MSPEXMLWorkingTimeAdapter> newWorkingTimeInRanges(MPPRangeList& ranges,
                                                                                MSPEMapper* mapper);

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

/// "WeekDays": a week of working ranges.
class MSPEXMLWeekDaysAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLWeekDaysAdapter, MSPEXMLRecordAdapter<MPPCalendarWorkWeek>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLWeekDaysAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// Takes a "WeekDay" whose day type is set. The day shares the child's list: ranges that the child gets later reach
    /// the week.
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
};

} // namespace brackwater
