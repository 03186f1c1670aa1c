#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLCalendarAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"
#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEScheduleInfo.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEOrderedMap.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

/// Converts the schedules of the resource hierarchy, in which every resource may override any weekday of its parent, to
/// the two levels of the target: base calendars, and resource calendars that derive from one.
///
/// Order of calls: `mapCalendarForResource` for the top resource and then for every other, parents first;
/// `setTopScheduleKey`; `buildCalendarHierarchy`. Failures are failed assertions.
class MSPECalendarMapper final : public MSPEObjectMapperBase {
public:
    using Calendars = MSPEXMLCollectionAdapter<MPPCalendar>;

    explicit MSPECalendarMapper(MSPEMapper* mapper);

    /// Collects a resource's schedule; `parent` is nothing only for the top resource. Returns the calendar's unique id.
    std::int64_t mapCalendarForResource(XMLElement resource, std::optional<XMLElement> parent);
    /// Whether the resource with this id has been mapped.
    [[nodiscard]] bool hasScheduleOf(std::string_view resourceId) const { return _scheduleInfoMap.find(resourceId); }
    void setTopScheduleKey(std::string key) { _topScheduleKey = std::move(key); }
    [[nodiscard]] const std::string& topScheduleKey() const noexcept { return _topScheduleKey; }
    /// Emits all calendars; call once after all resources.
    void buildCalendarHierarchy();

    /// The element "Calendars", which the project takes.
    [[nodiscard]] const std::shared_ptr<Calendars>& calendars() const noexcept { return _calendars; }
    /// The calendar of the last mapped resource: null, since calendars are created with the hierarchy.
    [[nodiscard]] const std::shared_ptr<MSPEXMLCalendarAdapter>& calendar() const noexcept { return _calendar; }

private:
    using ScheduleInfoPointer = std::shared_ptr<MSPEScheduleInfo>;
    using ScheduleInfoMap = MSPEOrderedMap<std::string, MSPEScheduleInfo>;

    [[nodiscard]] std::shared_ptr<MSPEXMLCalendarAdapter>
    newCalendarFromZelbResource(XMLElement resource, std::optional<XMLElement> parent, std::int64_t& calendarUID);
    void fixCalendarHierarchy();
    [[nodiscard]] ScheduleInfoPointer newFlatScheduleInfo(const MSPEScheduleInfo& info) const;
    /// The schedule's own, otherwise those of the nearest schedule above it.
    [[nodiscard]] const MSPEWorkingTimes& resolvedWorkingTimes(const MSPEScheduleInfo& info,
                                                               std::int32_t dayType) const;
    void copyResolvedExceptions(const MSPEScheduleInfo& info, MSPEScheduleInfo& flatCopy) const;

    void mapScheduleInfo(const MSPEScheduleInfo& info) const;
    [[nodiscard]] std::int64_t baseCalendarUID(const MSPEScheduleInfo& info) const;
    /// Null if no schedule has the key.
    [[nodiscard]] MSPEScheduleInfo* scheduleInfo(const std::string& key);

    std::shared_ptr<Calendars> _calendars;
    std::shared_ptr<MSPEXMLCalendarAdapter> _calendar;
    ScheduleInfoMap _scheduleInfoMap; ///< by the resource's id
    /// The map's schedules in insertion order; a resource added twice is here twice.
    std::vector<MSPEScheduleInfo*> _scheduleInfoKeys;
    std::string _topScheduleKey;
};

} // namespace brackwater
