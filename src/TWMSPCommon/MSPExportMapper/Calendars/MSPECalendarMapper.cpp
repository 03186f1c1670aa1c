#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarMapper.h"

#include "Platform/Log/Log.h"
#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarExceptions.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPEScheduleElements.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Source/MSPESourceEvents.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace brackwater {

namespace {

constexpr std::int64_t kTopCalendarUID = 1;

/// The source's names of the days, by day type.
constexpr std::array<std::string_view, 8> kDayNames = {"",          "sunday",   "monday", "tuesday",
                                                       "wednesday", "thursday", "friday", "saturday"};

std::int32_t dayTypeOfDay(XMLElement day) {
    const std::optional<std::string> name = day.attributeForName("day-of-week");
    const auto found = name ? std::find(kDayNames.begin() + 1, kDayNames.end(), *name) : kDayNames.end();
    assertThat(found != kDayNames.end(), "Unexpected day of week: {}", name.value_or("(null)"));
    return static_cast<std::int32_t>(found - kDayNames.begin());
}

double timeAttribute(XMLElement span, std::string_view name) {
    return static_cast<double>(integerValue(span.attributeForName(name).value_or("")));
}

bool hasAny(XMLElement element, const XMLQuery& query) { return element.lastObjectForXQuery(query).count > 0; }

/// The days that the schedule defines; it inherits the others.
void mapWeekDays(XMLElement schedule, MSPEScheduleInfo& info) {
    const XMLQuery days(info.extendedFormat ? "flattened-schedule-day[@day-of-week]" : "schedule-day");
    for (const XMLElement day : schedule.objectsForXQuery(days)) {
        MSPEWorkingTimes& workingTimes = info.resetWorkingTimesForDayType(dayTypeOfDay(day));
        for (const XMLElement span : day.objectsForXQuery(XMLQuery("time-span")))
            workingTimes.emplace_back(timeAttribute(span, "start-time"), timeAttribute(span, "end-time"));
    }
}

void addExceptions(std::shared_ptr<MSPECalendarExceptions> group, MSPEScheduleInfo& info) {
    group->mapEvents();
    auto& groups = group->overtime() ? info.overtimeExceptions : info.timeOffExceptions;
    groups.push_back(std::move(group));
}

/// Dated days: overtime if they have spans, otherwise time off. False if there are none.
bool mapFlattenedExceptions(XMLElement schedule, MSPEScheduleInfo& info) {
    std::vector<XMLElement> days = schedule.objectsForXQuery(XMLQuery("flattened-schedule-day[@date]"));
    const auto timeOff = std::stable_partition(
        days.begin(), days.end(), [](XMLElement day) { return !day.objectsForXQuery(XMLQuery("time-span")).empty(); });
    if (timeOff != days.begin())
        addExceptions(std::make_shared<MSPECalendarExceptions>(std::span(days.begin(), timeOff), true), info);
    if (timeOff != days.end())
        addExceptions(std::make_shared<MSPECalendarExceptions>(std::span(timeOff, days.end()), false), info);
    return !days.empty();
}

void mapCalendarExceptions(XMLElement schedule, MSPEScheduleInfo& info) {
    for (const XMLElement calendar : schedule.objectsForXQuery(XMLQuery("calendar"))) {
        auto group = std::make_shared<MSPECalendarExceptions>(calendar);
        if (!group->overtime())
            logLine("WARNING: Mapping time-off hours to full non-working day exception in MS Project calendar '{}'.",
                    info.calendarName.value_or("(null)"));
        addExceptions(std::move(group), info);
    }
}

void mapSchedule(XMLElement schedule, MSPEScheduleInfo& info, bool keepsSource) {
    info.extendedFormat = hasAny(schedule, XMLQuery("flattened-schedule-day"));
    if (!info.parentKey())
        info.setProjetDefaults();
    mapWeekDays(schedule, info);
    if (keepsSource)
        info.source = sourceEventsOfSchedule(schedule);
    else if (!info.extendedFormat || !mapFlattenedExceptions(schedule, info))
        mapCalendarExceptions(schedule, info);
}

} // namespace

MSPECalendarMapper::MSPECalendarMapper(MSPEMapper* mapper)
    : MSPEObjectMapperBase(mapper), _calendars(Calendars::elementWithName("Calendars", mapper)) {}

// Collecting: one schedule per resource.

std::int64_t MSPECalendarMapper::mapCalendarForResource(XMLElement resource, std::optional<XMLElement> parent) {
    std::int64_t calendarUID = 0;
    _calendar = newCalendarFromZelbResource(resource, parent, calendarUID);
    assertThat(calendarUID >= 1, "Incorrect value of new Calendar UID ({}).", calendarUID);
    return calendarUID;
}

std::shared_ptr<MSPEXMLCalendarAdapter>
MSPECalendarMapper::newCalendarFromZelbResource(XMLElement resource, std::optional<XMLElement> parent,
                                                std::int64_t& calendarUID) {
    std::string name = stringValueForXQuery(resource, XMLQuery("name")).value_or("");
    calendarUID = MSPEMapper::nextCalendarUID();
    if (parent)
        logLine("  Mapping Schedule for Resource '{}' ...", name);
    else
        logLine("  Mapping Project Schedule ...");
    assertThat(calendarUID > 0, "Incorrect Calendar UID ({}). Should be greater than zero.", calendarUID);
    assertThat(parent || calendarUID == kTopCalendarUID, "Top resource calendar UID mast be equal to 1.");

    std::optional<std::string> parentKey;
    if (parent) {
        parentKey = parent->attributeForName("id");
        assertThat(parentKey.has_value(), "Top resource, and only top resource, has no parent resource.");
    } else {
        name = "Standard";
    }
    const std::optional<std::string> key = resource.attributeForName("id");
    assertThat(key.has_value(), "Failed to find arrtibute '{}' in element '{}'.", "id", resource.name());

    MSPEScheduleInfo& info =
        _scheduleInfoMap.set(*key, MSPEScheduleInfo(resource, parentKey, calendarUID, std::move(name)));
    _scheduleInfoKeys.push_back(&info);
    if (const std::optional<XMLElement> schedule = singleObjectForXQuery(resource, XMLQuery("schedule"))) {
        mapSchedule(*schedule, info, mapper()->keepsSource());
    } else if (calendarUID != kTopCalendarUID) {
        assertThat(parentKey.has_value(), "No parent resource specified.");
        assertThat(scheduleInfo(*parentKey) != nullptr, "Can not find parent resource schedule in the map.");
    }
    return info.calendar;
}

// Building: reduces many levels to two.

void MSPECalendarMapper::buildCalendarHierarchy() {
    MSPEScheduleInfo* top = scheduleInfo(_topScheduleKey);
    assertThat(top != nullptr, "Can not find schedule info fo rtop resource.");
    assertThat(top->calendarUID == kTopCalendarUID, "Incorrect project calendar UID for top schedule ({}). Must be 1.",
               top->calendarUID);
    top->ensureProjetDefaultWeekDays();
    fixCalendarHierarchy();

    for (MSPEScheduleInfo* entry : _scheduleInfoKeys) {
        MSPEScheduleInfo& info = *entry;
        MSPEScheduleInfo& emitted = info.flatCopy ? *info.flatCopy : info;
        emitted.calendar = MSPEXMLCalendarAdapter::elementWithName("Calendar", mapper());
        _calendars->addChild(emitted.calendar);
        mapScheduleInfo(emitted);
    }
}

void MSPECalendarMapper::fixCalendarHierarchy() {
    for (MSPEScheduleInfo* entry : _scheduleInfoKeys) {
        MSPEScheduleInfo& info = *entry;
        if (!info.parentKey())
            continue;
        info.parentInfo = scheduleInfo(*info.parentKey());
        assertThat(info.parentInfo != nullptr, "Can not find schedule info for key '{}'.", *info.parentKey());
        info.parentInfo->isParentSchedule = true;
    }

    // A schedule with descendants becomes a base calendar: itself at the top, otherwise a copy that inherits nothing.
    for (MSPEScheduleInfo* entry : _scheduleInfoKeys) {
        MSPEScheduleInfo& info = *entry;
        if (!info.isParentSchedule || info.isBaseCalendar)
            continue;
        if (!info.parentKey()) {
            info.isBaseCalendar = true;
        } else if (!info.flatCopy) {
            info.flatCopy = newFlatScheduleInfo(info);
            info.flatCopy->isBaseCalendar = true;
        }
        assertThat(!info.flatCopy || info.flatCopy->isBaseCalendar,
                   "Flattened copy of a schedule info must be marked as base calendar.");
    }
}

MSPECalendarMapper::ScheduleInfoPointer MSPECalendarMapper::newFlatScheduleInfo(const MSPEScheduleInfo& info) const {
    assertThat(!info.flatCopy, "Do not flatten schedule info which already has flattened copy!");
    auto flatCopy = std::make_shared<MSPEScheduleInfo>();
    flatCopy->calendarUID = MSPEMapper::nextCalendarUID();
    flatCopy->calendarName = info.calendarName;
    flatCopy->extendedFormat = info.extendedFormat;
    for (std::int32_t dayType = MSPEScheduleInfo::kFirstDayType; dayType <= MSPEScheduleInfo::kLastDayType; ++dayType)
        flatCopy->addWorkingTimesForDayType(&resolvedWorkingTimes(info, dayType), dayType);
    copyResolvedExceptions(info, *flatCopy);
    return flatCopy;
}

// Parents come before their children, and so do their flat copies: the search ends at the first parent.
const MSPEWorkingTimes& MSPECalendarMapper::resolvedWorkingTimes(const MSPEScheduleInfo& info,
                                                                 std::int32_t dayType) const {
    const MSPEWorkingTimes* workingTimes = info.workingTimesForDayType(dayType);
    const MSPEScheduleInfo* current = &info;
    for (std::size_t steps = 0; !workingTimes; ++steps) {
        // A parent that is its own descendant has no top above it either.
        assertThat(current->parentKey() && steps < _scheduleInfoKeys.size(),
                   "We should eventually find working times, at least in Project default schedule.");
        current = current->parentInfo;
        assertThat(current != nullptr, "Schedule info has no parent info.");
        if (current->flatCopy) {
            workingTimes = current->flatCopy->workingTimesForDayType(dayType);
            assertThat(workingTimes != nullptr, "Flattened schedule copy must have all working times resolved.");
        } else {
            workingTimes = current->workingTimesForDayType(dayType);
            assertThat(workingTimes || !current->isBaseCalendar,
                       "Base calendar schedule must have all working times resolved.");
        }
    }
    return *workingTimes;
}

// Exceptions are inherited as a whole from the nearest schedule that has any. A parent's flat copy already has them.
void MSPECalendarMapper::copyResolvedExceptions(const MSPEScheduleInfo& info, MSPEScheduleInfo& flatCopy) const {
    const MSPEScheduleInfo* source = &info;
    for (std::size_t steps = 0; !source->tellsExceptions() && source->parentKey() && steps < _scheduleInfoKeys.size();
         ++steps) {
        const MSPEScheduleInfo* parent = source->parentInfo;
        assertThat(parent != nullptr, "Non-root schedule info has no parent info.");
        source = parent->flatCopy ? parent->flatCopy.get() : parent;
    }
    flatCopy.overtimeExceptions = source->overtimeExceptions;
    flatCopy.timeOffExceptions = source->timeOffExceptions;
    flatCopy.source = source->source;
}

void MSPECalendarMapper::mapScheduleInfo(const MSPEScheduleInfo& info) const {
    assertThat(info.calendar != nullptr, "Schedule info has no associated calendar object.");
    MSPEXMLCalendarAdapter& calendar = *info.calendar;
    calendar.addChildElementWithName("UID", fmt::format("{}", info.calendarUID));
    calendar.addChildElementWithName("Name", stringByReplacingOccurrencesOfNewline(info.calendarName.value_or("")));
    calendar.addChildElementWithName("IsBaseCalendar", info.isBaseCalendar ? "1" : "0");
    calendar.addChildElementWithName("BaseCalendarUID",
                                     info.isBaseCalendar ? "-1" : fmt::format("{}", baseCalendarUID(info)));
    mapScheduleInfoToCalendar(info, calendar);
    calendar.mppDomObject()->source = info.source;
}

std::int64_t MSPECalendarMapper::baseCalendarUID(const MSPEScheduleInfo& info) const {
    assertThat(info.parentKey().has_value(), "Schedule info has no parent key.");
    const MSPEScheduleInfo* parent = info.parentInfo;
    assertThat(parent != nullptr, "Schedule info has no parent info.");
    if (parent->isBaseCalendar)
        return parent->calendarUID;
    assertThat(parent->flatCopy != nullptr,
               "Non-base parent schedule must have its flattened copy to make base calendar.");
    return parent->flatCopy->calendarUID;
}

MSPEScheduleInfo* MSPECalendarMapper::scheduleInfo(const std::string& key) { return _scheduleInfoMap.find(key); }

} // namespace brackwater
