#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendarSource.h"
#include "Platform/Xml/XMLElement.h"

#include <memory>

namespace brackwater {

/// The exceptions of a `schedule` element in source order: dated `flattened-schedule-day` elements, otherwise the
/// events of its `calendar` elements. Null if it has neither. Unparsable dates and events without length are failed
/// assertions.
///
/// Time off lasts from an event's start to its end. Overtime over several days has the same hours on each day, split at
/// midnight. The spans of a flattened day are all the hours of that day.
[[nodiscard]] std::shared_ptr<const MPPCalendarSource> sourceEventsOfSchedule(XMLElement schedule);

} // namespace brackwater
