#include "MPPXMLDOMFilter/Adapters/MSPEXMLCalendarAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLWeekDaysAdapter.h"

namespace brackwater {

namespace {

using namespace conversions;

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<MPPCalendar>>({
    {"UID", setField<&MPPCalendar::ID, integer>},
    {"BaseCalendarUID", setProxy<&MPPCalendar::baseCalendar>},
    {"IsBaseCalendar", setField<&MPPCalendar::isBaseCalendar, boolean>},
    {"Name", setField<&MPPCalendar::name, text>},
}));

} // namespace

std::shared_ptr<MSPEXMLAdapter> MSPEXMLCalendarAdapter::addChildElementWithName(std::string_view name) {
    if (name == "Exceptions")
        return MSPEXMLCollectionAdapter<MPPCalendarException>::onListOf(*this, name, &MPPCalendar::exceptions);
    if (name == "WeekDays") {
        auto weekDays = MSPEXMLWeekDaysAdapter::elementWithName(name, mapper());
        mppDomObject()->defaultWorkWeek = weekDays->mppDomObject();
        return weekDays;
    }
    if (name == "WorkWeeks")
        return MSPEXMLCollectionAdapter<MPPCalendarWorkWeek>::onListOf(*this, name, &MPPCalendar::workWeeks);
    return nullptr;
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLCalendarAdapter::addChildElementWithName(std::string_view name,
                                                                                ElementText stringValue) {
    kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

} // namespace brackwater
