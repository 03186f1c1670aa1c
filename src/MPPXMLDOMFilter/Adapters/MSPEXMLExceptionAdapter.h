#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPCalendarException.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Exception" of a calendar.
class MSPEXMLExceptionAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLExceptionAdapter, MSPEXMLRecordAdapter<MPPCalendarException>>,
      public std::enable_shared_from_this<MSPEXMLExceptionAdapter> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLExceptionAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// Takes "TimePeriod" and "WorkingTime".
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
    /// "WorkingTimes": this adapter itself. "WorkingTime": a new MSPEXMLWorkingTimeAdapter.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name) override;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
