#include "MPPXMLDOMFilter/Adapters/MSPEXMLWeekDayAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ChildClass.h"
#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLWorkingTimeAdapter.h"

namespace brackwater {

void MSPEXMLWeekDayAdapter::addChild(const std::shared_ptr<MSPEXMLAdapter>& given) {
    const MSPEXMLAdapter& child = requireChild(given);
    if (child.name() == "WorkingTime")
        addWorkingTimeToRanges(*mppDomObject(), child);
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLWeekDayAdapter::addChildElementWithName(std::string_view name) {
    if (name == "WorkingTime")
        return newWorkingTimeInRanges(*mppDomObject(), mapper());
    if (name == "WorkingTimes")
        return shared_from_this();
    return nullptr;
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLWeekDayAdapter::addChildElementWithName(std::string_view name,
                                                                               ElementText stringValue) {
    if (name == "DayType")
        _dayType = conversions::int32(stringValue);
    else if (name == "DayWorking")
        _dayWorking = conversions::boolean(stringValue);
    return nullptr;
}

} // namespace brackwater
