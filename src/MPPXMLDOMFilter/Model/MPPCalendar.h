#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendarException.h"
#include "MPPXMLDOMFilter/Model/MPPCalendarSource.h"
#include "MPPXMLDOMFilter/Model/MPPCalendarWorkWeek.h"
#include "MPPXMLDOMFilter/Model/RecordReference.h"
#include "Platform/Guid.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// A base calendar, or a resource's calendar that derives from one.
struct MPPCalendar {
    /// A random GUID.
    MPPCalendar() : MPPCalendar(Guid::random()) {}
    explicit MPPCalendar(const Guid& guid) : _GUID(guid) {}

    std::uint64_t ID = 0;
    CalendarReference baseCalendar; ///< unset for a base calendar
    std::optional<std::string> name;
    bool isBaseCalendar = false;
    std::shared_ptr<MPPCalendarWorkWeek> defaultWorkWeek; ///< null: the calendar says nothing of its week
    std::vector<std::shared_ptr<MPPCalendarWorkWeek>> workWeeks;
    std::vector<std::shared_ptr<MPPCalendarException>> exceptions;
    std::shared_ptr<const MPPCalendarSource> source; ///< null in an exact export, and where the source tells no event

    [[nodiscard]] const Guid& GUID() const noexcept { return _GUID; }
    void setGUID(const Guid& guid) noexcept { _GUID = guid; }
    [[nodiscard]] std::string description() const;

private:
    Guid _GUID;
};

} // namespace brackwater
