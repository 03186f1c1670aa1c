#include "MPPXMLDOMFilter/Adapters/MSPEXMLCalendarAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ChildClass.h"
#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLWeekDaysAdapter.h"
#include "Platform/Log/Log.h"

namespace brackwater {

std::shared_ptr<MSPEXMLAdapter> MSPEXMLTimePeriodAdapter::addChildElementWithName(std::string_view name,
                                                                                  ElementText stringValue) {
    if (name == "FromDate")
        _fromDate = conversions::date(stringValue);
    else if (name == "ToDate")
        _toDate = conversions::date(stringValue);
    return nullptr;
}

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

constexpr ElementVocabulary kExceptionVocabulary(std::to_array<VocabularyRow<MPPCalendarException>>({
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
    kExceptionVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

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
