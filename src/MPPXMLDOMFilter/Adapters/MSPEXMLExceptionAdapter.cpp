#include "MPPXMLDOMFilter/Adapters/MSPEXMLExceptionAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ChildClass.h"
#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLTimePeriodAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLWorkingTimeAdapter.h"
#include "Platform/Log.h"

namespace brackwater {

namespace {

using namespace conversions;

/// The only kind of recurrence that the mapping sends and the record holds.
constexpr std::int32_t kDailyExceptionType = 1;

void checkEnteredByOccurrences(MPPCalendarException&, ElementText text) {
    assertThat(!boolean(text), "Unexpected value of 'EnteredByOccurrences' property ('{}'). Boolen value must be NO.",
               shown(text));
}

void checkType(MPPCalendarException&, ElementText text) {
    if (const std::int32_t type = int32(text); type != kDailyExceptionType)
        logLine("WARNING: Calendar Exception type {} not supported.", type);
}

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<MPPCalendarException>>({
    {"DayWorking", dropped},
    {"EnteredByOccurrences", checkEnteredByOccurrences},
    {"Name", setField<&MPPCalendarException::name, text>},
    {"Occurrences", dropped},
    {"Type", checkType},
}));

} // namespace

void MSPEXMLExceptionAdapter::addChild(const std::shared_ptr<MSPEXMLAdapter>& given) {
    const MSPEXMLAdapter& child = requireChild(given);
    MPPCalendarException& exception = *mppDomObject();
    if (child.name() == "TimePeriod") {
        const auto& period = requireReceivedClass<MSPEXMLTimePeriodAdapter>(child);
        assertThat(period.fromDate() && period.toDate(), "Set dates in TimePeriod before adding it to Exception.");
        exception.startDate = period.fromDate();
        exception.endDate = period.toDate();
    } else if (child.name() == "WorkingTime") {
        addWorkingTimeToRanges(exception.workRanges, child);
    }
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLExceptionAdapter::addChildElementWithName(std::string_view name) {
    if (name == "WorkingTime")
        return newWorkingTimeInRanges(mppDomObject()->workRanges, mapper());
    if (name == "WorkingTimes")
        return shared_from_this();
    return nullptr;
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLExceptionAdapter::addChildElementWithName(std::string_view name,
                                                                                 ElementText stringValue) {
    kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

} // namespace brackwater
