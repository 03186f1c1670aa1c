#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPCalendarTimeRange.h"

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

    /// "08:30:45" as 08:30: seconds are not kept. Nothing where the text has no two colons.
    [[nodiscard]] static std::optional<MPPCalendarTime> newMppCalendarTimeFromMspdiTime(ElementText text);
};

/// Takes the child "WorkingTime" of a day or an exception into its list of ranges.
void addWorkingTimeToRanges(MPPRangeList& ranges, const MSPEXMLAdapter& child);
/// Makes a "WorkingTime" whose range is in the list.
[[nodiscard]] std::shared_ptr<MSPEXMLWorkingTimeAdapter> newWorkingTimeInRanges(MPPRangeList& ranges,
                                                                                MSPEMapper* mapper);

} // namespace brackwater
