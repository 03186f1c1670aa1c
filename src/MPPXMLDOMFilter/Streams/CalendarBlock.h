#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "MPPXMLDOMFilter/Model/MPPCalendar.h"

#include <cstdint>

namespace brackwater {

/// Appends the calendar block of a "Var2Data" element: the week, the exceptions and the dated work weeks. Each work
/// week that is written takes the counter's number and raises it. Raises TooManyRangesException for more than 5 ranges
/// in a day or an exception.
void writeCalendarBlock(MPPData& data, const MPPCalendar& calendar, std::uint32_t& workWeekCounter);

} // namespace brackwater
