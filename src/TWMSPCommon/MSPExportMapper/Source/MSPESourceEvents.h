#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendarSource.h"
#include "Platform/Xml/XMLElement.h"

#include <memory>

namespace brackwater {

/// The exceptions of a `schedule` element as the source tells them, in its order: dated `flattened-schedule-day`
/// elements, or else the events of its `calendar` elements. Null where it has neither. A date that does not read and an
/// event without length are failed assertions.
///
/// Time off goes from an event's start to its end. Overtime of several days is worked at the same hours on each of
/// them; where it crosses midnight it is split there. The spans of a flattened day are all the hours of that day.
[[nodiscard]] std::shared_ptr<const MPPCalendarSource> sourceEventsOfSchedule(XMLElement schedule);

} // namespace brackwater
