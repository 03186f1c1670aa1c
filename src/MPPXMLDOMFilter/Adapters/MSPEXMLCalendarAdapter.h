#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPCalendar.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Calendar".
class MSPEXMLCalendarAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLCalendarAdapter, MSPEXMLRecordAdapter<MPPCalendar>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLCalendarAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// "WeekDays": an MSPEXMLWeekDaysAdapter whose record becomes the default week. "Exceptions", "WorkWeeks":
    /// collections on the record's lists.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name) override;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
