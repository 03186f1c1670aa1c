#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPCalendarWorkWeek.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "WorkWeek", a dated week. It has no record until it gets its "WeekDays", whose record it takes; so they come first,
/// before the work week joins its collection.
class MSPEXMLWorkWeekAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLWorkWeekAdapter, MSPEXMLRecordAdapter<MPPCalendarWorkWeek>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLWorkWeekAdapter";
    MSPEXMLWorkWeekAdapter(std::string_view name, MSPEMapper* mapper);

    /// Takes "TimePeriod".
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
    /// Makes "WeekDays", once.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name) override;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
