#include "MPPXMLDOMFilter/Adapters/MSPEXMLWeekDaysAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ChildClass.h"
#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"

#include <algorithm>
#include <array>

namespace brackwater {

namespace {

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<MPPCalendarTimeRange>>({
    {"FromTime", setField<&MPPCalendarTimeRange::start, MSPEXMLWorkingTimeAdapter::newMppCalendarTimeFromMspdiTime>},
    {"ToTime", setField<&MPPCalendarTimeRange::end, MSPEXMLWorkingTimeAdapter::newMppCalendarTimeFromMspdiTime>},
}));

constexpr bool isDigit(char character) noexcept { return character >= '0' && character <= '9'; }

/// The number in a run of digits, truncated to its low 8 bits; 0 for an empty run.
std::uint8_t lowByte(std::string_view digits) noexcept {
    return static_cast<std::uint8_t>(static_cast<std::uint64_t>(integerValue(digits)) & 0xFF);
}

} // namespace

std::shared_ptr<MSPEXMLAdapter> MSPEXMLWorkingTimeAdapter::addChildElementWithName(std::string_view name,
                                                                                   ElementText stringValue) {
    kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

// A clock text is digits, a colon, digits and a colon, anywhere in the text; each run of digits may be empty.
std::optional<MPPCalendarTime> MSPEXMLWorkingTimeAdapter::newMppCalendarTimeFromMspdiTime(ElementText text) {
    const std::string_view clock = text.value_or("");
    for (std::size_t colon = clock.find(':'); colon != std::string_view::npos; colon = clock.find(':', colon + 1)) {
        const std::string_view behind = clock.substr(colon + 1);
        const auto minutesEnd = std::find_if_not(behind.begin(), behind.end(), isDigit);
        if (minutesEnd == behind.end() || *minutesEnd != ':')
            continue;
        const std::string_view before = clock.substr(0, colon);
        const auto hoursBegin = std::find_if_not(before.rbegin(), before.rend(), isDigit).base();

        MPPCalendarTime time;
        time.setHours(lowByte({hoursBegin, before.end()}));
        time.setMinutes(lowByte({behind.begin(), minutesEnd}));
        return time;
    }
    return std::nullopt;
}

void addWorkingTimeToRanges(MPPRangeList& ranges, const MSPEXMLAdapter& child) {
    ranges.push_back(requireReceivedClass<MSPEXMLWorkingTimeAdapter>(child).mppDomObject());
}

std::shared_ptr<MSPEXMLWorkingTimeAdapter> newWorkingTimeInRanges(MPPRangeList& ranges, MSPEMapper* mapper) {
    auto workingTime = MSPEXMLWorkingTimeAdapter::elementWithName("WorkingTime", mapper);
    ranges.push_back(workingTime->mppDomObject());
    return workingTime;
}

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
