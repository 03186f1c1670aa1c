#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPCalendarWorkWeek.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "WeekDays": a week of working ranges.
class MSPEXMLWeekDaysAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLWeekDaysAdapter, MSPEXMLRecordAdapter<MPPCalendarWorkWeek>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLWeekDaysAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// Takes a "WeekDay" whose day type is set. The day shares the child's list: ranges that the child gets later
    /// reach the week.
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
};

} // namespace brackwater
