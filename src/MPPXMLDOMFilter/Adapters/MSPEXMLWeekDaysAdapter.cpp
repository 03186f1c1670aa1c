#include "MPPXMLDOMFilter/Adapters/MSPEXMLWeekDaysAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ChildClass.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLWeekDayAdapter.h"
#include "Platform/Exception.h"

#include <array>

namespace brackwater {

namespace {

struct Day {
    std::string_view property;
    MPPDayRanges MPPCalendarWorkWeek::*ranges;
};

/// By day type; no day has the type 0.
constexpr std::array<Day, 8> kDays = {{
    {"", nullptr},
    {"sundayWorkRanges", &MPPCalendarWorkWeek::sundayWorkRanges},
    {"mondayWorkRanges", &MPPCalendarWorkWeek::mondayWorkRanges},
    {"tuesdayWorkRanges", &MPPCalendarWorkWeek::tuesdayWorkRanges},
    {"wednesdayWorkRanges", &MPPCalendarWorkWeek::wednesdayWorkRanges},
    {"thursdayWorkRanges", &MPPCalendarWorkWeek::thursdayWorkRanges},
    {"fridayWorkRanges", &MPPCalendarWorkWeek::fridayWorkRanges},
    {"saturdayWorkRanges", &MPPCalendarWorkWeek::saturdayWorkRanges},
}};

} // namespace

void MSPEXMLWeekDaysAdapter::addChild(const std::shared_ptr<MSPEXMLAdapter>& given) {
    const MSPEXMLAdapter& child = requireChild(given);
    if (child.name() != "WeekDay")
        return;
    const auto& weekDay = requireChildClass<MSPEXMLWeekDayAdapter>(child);
    const std::int32_t dayType = weekDay.dayType();
    assertThat(dayType >= 1 && dayType <= 7, "Unexpected WeekDay dayType: {}", dayType);

    const Day& day = kDays[static_cast<std::size_t>(dayType)];
    MPPDayRanges& ranges = (*mppDomObject()).*day.ranges;
    assertThat(!ranges || ranges->empty(), "Expected MPPCalendarWorkWeek.{} to be nil", day.property);
    ranges = weekDay.mppDomObject();
}

} // namespace brackwater
