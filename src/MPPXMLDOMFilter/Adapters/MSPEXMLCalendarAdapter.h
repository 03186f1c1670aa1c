#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPCalendar.h"
#include "Platform/Time/Date.h"

#include <memory>
#include <optional>
#include <string_view>

namespace brackwater {

/// "TimePeriod": the two dates of an exception or a dated week, which its parent takes. Set them before adding it.
class MSPEXMLTimePeriodAdapter final : public MSPEXMLAdapterClass<MSPEXMLTimePeriodAdapter, MSPEXMLAdapter> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLTimePeriodAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;

    [[nodiscard]] const std::optional<Date>& fromDate() const noexcept { return _fromDate; }
    [[nodiscard]] const std::optional<Date>& toDate() const noexcept { return _toDate; }

private:
    std::optional<Date> _fromDate;
    std::optional<Date> _toDate;
};

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

/// "WorkWeek", a dated week. It has no record until it gets its "WeekDays", whose record it takes; so they must be
/// added before the work week joins its collection.
class MSPEXMLWorkWeekAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLWorkWeekAdapter, MSPEXMLRecordAdapter<MPPCalendarWorkWeek>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLWorkWeekAdapter";
    MSPEXMLWorkWeekAdapter(std::string_view name, MSPEMapper* mapper);

    /// Takes "TimePeriod".
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
    /// Creates "WeekDays", once.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name) override;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

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
