#include "MPPXMLDOMFilter/Adapters/MSPEXMLWorkWeekAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ChildClass.h"
#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTimePeriodAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLWeekDaysAdapter.h"

namespace brackwater {

namespace {

MPPCalendarWorkWeek& requireWorkWeek(const std::shared_ptr<MPPCalendarWorkWeek>& workWeek) {
    assertThat(workWeek != nullptr, "Add WeekDays to WorkWeek before any other element!");
    return *workWeek;
}

} // namespace

MSPEXMLWorkWeekAdapter::MSPEXMLWorkWeekAdapter(std::string_view name, MSPEMapper* mapper)
    : MSPEXMLAdapterClass(name, mapper, nullptr) {}

void MSPEXMLWorkWeekAdapter::addChild(const std::shared_ptr<MSPEXMLAdapter>& given) {
    const MSPEXMLAdapter& child = requireChild(given);
    if (child.name() != "TimePeriod")
        return;
    MPPCalendarWorkWeek& workWeek = requireWorkWeek(mppDomObject());
    const auto& period = requireReceivedClass<MSPEXMLTimePeriodAdapter>(child);
    assertThat(period.fromDate() && period.toDate(), "Set dates in TimePeriod before adding it to WorkWeek.");
    workWeek.startDate = period.fromDate();
    workWeek.endDate = period.toDate();
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLWorkWeekAdapter::addChildElementWithName(std::string_view name) {
    if (name != "WeekDays")
        return nullptr;
    assertThat(mppDomObject() == nullptr, "Added extra WeekDays element to WorkWeek.");
    auto weekDays = MSPEXMLWeekDaysAdapter::elementWithName(name, mapper());
    setMppDomObject(weekDays->mppDomObject());
    return weekDays;
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLWorkWeekAdapter::addChildElementWithName(std::string_view name,
                                                                                ElementText stringValue) {
    if (name == "Name")
        requireWorkWeek(mppDomObject()).name = conversions::text(stringValue);
    return nullptr;
}

} // namespace brackwater
