#include "MPPXMLDOMFilter/Streams/MPPCalendarWriters.h"

#include "MPPXMLDOMFilter/Streams/CalendarBlock.h"
#include "MPPXMLDOMFilter/Streams/FieldMapRows.h"
#include "MPPXMLDOMFilter/Streams/IndexRecord.h"
#include "MPPXMLDOMFilter/Streams/RecordValues.h"
#include "MPPXMLDOMFilter/Streams/RowBuilder.h"
#include "MPPXMLDOMFilter/Streams/StorageElements.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/ProcessState.h"

#include <algorithm>

namespace brackwater {

namespace {

constexpr std::uint16_t kDescriptionEnding = 3392; // 0x0D40
constexpr std::size_t kFixedRowSize = 12;
constexpr std::size_t kFixed2RowSize = 48;
using CalendarRecord = IndexRecord<10>;
using SecondCalendarRecord = IndexRecord<9, CalendarRow::SecondBlock>;
constexpr std::uint64_t kNameType = 1;
constexpr std::uint64_t kBlockType = 8;
constexpr std::uint32_t kNone = 0xFFFFFFFF;

// A record that preprocessing leaves behind; a project that was not preprocessed may lack it.
const MPPCalendar& present(const MPPCalendar* calendar) {
    assertThat(calendar != nullptr, "A calendar of the project is missing.");
    return *calendar;
}

const MPPCalendar& standardCalendar(const MPPProject& project) { return present(project.standardCalendar.get()); }
const MPPCalendar& calendarOf(const MPPResource& resource) { return present(resource.calendar.record()); }

std::uint64_t baseCalendarID(const MPPCalendar& calendar) {
    const MPPCalendar* base = calendar.baseCalendar.record();
    return base ? base->ID : 0;
}

Guid baseCalendarGuid(const MPPCalendar& calendar) {
    const MPPCalendar* base = calendar.baseCalendar.record();
    return base ? base->GUID() : Guid();
}

} // namespace

bool MPPCalendarStreamWriter::definesAnything(const MPPCalendar& calendar) {
    return (calendar.defaultWorkWeek && calendar.defaultWorkWeek->definesAnyDay()) || !calendar.exceptions.empty() ||
           !calendar.workWeeks.empty();
}

RowStorageLayout MPPCalendarStreamWriter::layout() const {
    return {.kind = MPPRowKind::Calendar,
            .descriptionEnding = kDescriptionEnding,
            .headerRows = {.count = 4,
                           .bit = CalendarRow::Header,
                           .fixedMetaSize = CalendarRecord::kSize,
                           .fixed2RowSize = kFixed2RowSize,
                           .fixed2MetaSize = SecondCalendarRecord::kSize}};
}

// "Var2Data" and its index.

// The elements of a calendar, type beside payload. The default resource's has none.
template <typename Visitor>
void MPPCalendarStreamWriter::visitElements(const MPPCalendar& calendar, Visitor element) {
    if (hasText(calendar.name))
        element(kNameType, unicodeText(*calendar.name));
    if (hasBlock(calendar))
        element(kBlockType, [&](MPPData& data) { writeCalendarBlock(data, calendar, workWeekCounter()); });
}

void MPPCalendarStreamWriter::writeVar2Data(StreamOutput& stream) {
    const auto write = [&](const MPPCalendar& calendar) {
        visitElements(calendar, TypedElementPayloads(var2Data(), calendar.ID));
    };
    write(standardCalendar(project()));
    stream.writeEach(project().baseCalendars, write);
    stream.writeEach(project().resources, [&](const MPPResource& resource) { write(calendarOf(resource)); });
}

void MPPCalendarStreamWriter::writeVarMeta(MPP12VarMeta& varMeta, StreamOutput& stream) {
    const auto write = [&](const MPPCalendar& calendar) {
        visitElements(calendar, ElementRecords(varMeta, calendar.ID));
    };
    write(standardCalendar(project()));
    stream.writeEach(project().baseCalendars, write);
    stream.writeEach(project().resources, [&](const MPPResource& resource) { write(calendarOf(resource)); });
}

// "FixedData" and its index.

namespace {

void writeCalendarFixedData(MPPFixedData& fixedData, std::uint64_t id, std::uint64_t baseID, std::uint64_t resourceID) {
    RowBuilder<kFixedRowSize> row;
    row.at(0).lowInteger(id);
    row.at(4).lowInteger(baseID);
    row.at(8).lowInteger(resourceID);
    row.endElement(fixedData);
}

void writeResourceCalendarFixedData(MPPFixedData& fixedData, const MPPResource& resource) {
    const MPPCalendar& calendar = calendarOf(resource);
    writeCalendarFixedData(fixedData, calendar.ID, baseCalendarID(calendar), resource.ID);
}

} // namespace

void MPPCalendarStreamWriter::writeFixedData(StreamOutput& stream) {
    writeCalendarFixedData(fixedData(), standardCalendar(project()).ID, kNone, kNone);
    writeResourceCalendarFixedData(fixedData(), *project().defaultResource());
    stream.writeEach(project().baseCalendars, [&](const MPPCalendar& calendar) {
        writeCalendarFixedData(fixedData(), calendar.ID, kNone, kNone);
    });
    stream.writeEach(project().resources,
                     [&](const MPPResource& resource) { writeResourceCalendarFixedData(fixedData(), resource); });
}

namespace {

// A base calendar's name is told, an absent one too.
void writeCalendarFixedMeta(MPPFixedMeta& fixedMeta, bool isBaseCalendar, bool hasBlock, std::uint32_t start) {
    CalendarRecord record;
    record.bits(CalendarRow::UniqueID, CalendarRow::ResourceID);
    record.bit(CalendarRow::IsBaseCalendar, isBaseCalendar);
    record.bit(CalendarRow::Name, isBaseCalendar);
    record.bit(CalendarRow::Block, hasBlock);
    record.end(fixedMeta, start);
}

std::uint32_t startOfNamedRow(std::uint64_t number) { return static_cast<std::uint32_t>(number << 16); }

} // namespace

// The upper half is the number of the calendar's elements where the file keeps its numbers in step, else `usual`.
std::uint32_t MPPCalendarStreamWriter::startValueOf(const MPPCalendar& calendar, std::uint32_t usual) const {
    if (!project().bookkeeping)
        return usual;
    return static_cast<std::uint32_t>(var2Data().numberOfElementsForID(calendar.ID)) << 16;
}

void MPPCalendarStreamWriter::writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) {
    const MPPCalendar& standard = standardCalendar(project());
    writeCalendarFixedMeta(fixedMeta, true, standardRowTellsBlock(standard),
                           startValueOf(standard, startOfNamedRow(standard.ID)));
    writeCalendarFixedMeta(fixedMeta, false, false, 0); // the default resource's
    stream.writeEach(project().baseCalendars, [&](const MPPCalendar& calendar) {
        writeCalendarFixedMeta(fixedMeta, true, hasBlock(calendar),
                               startValueOf(calendar, startOfNamedRow(calendar.ID - 1)));
    });
    stream.writeEach(project().resources, [&](const MPPResource& resource) {
        const MPPCalendar& calendar = calendarOf(resource);
        const bool isTold = hasBlock(calendar);
        writeCalendarFixedMeta(fixedMeta, false, isTold,
                               isTold ? startValueOf(calendar, startValueOfResourceBlock()) : 0);
    });
}

// "Fixed2Data" and its index.

namespace {

void writeCalendarFixed2Data(MPPFixedData& fixed2Data, const Guid& first, const Guid& second, const Guid& third) {
    RowBuilder<kFixed2RowSize> row;
    row.at(0).guid(first);
    row.at(16).guid(second);
    row.at(32).guid(third);
    row.endElement(fixed2Data);
}

} // namespace

void MPPCalendarStreamWriter::writeFixed2Data(StreamOutput& stream) {
    writeCalendarFixed2Data(fixed2Data(), standardCalendar(project()).GUID(), Guid(), Guid());
    const MPPCalendar& defaultCalendar = calendarOf(*project().defaultResource());
    writeCalendarFixed2Data(fixed2Data(), defaultCalendar.GUID(), defaultCalendar.GUID(),
                            baseCalendarGuid(defaultCalendar));
    stream.writeEach(project().baseCalendars, [&](const MPPCalendar& calendar) {
        writeCalendarFixed2Data(fixed2Data(), calendar.GUID(), Guid(), Guid());
    });
    // Here it is the resource's GUID, not its calendar's.
    stream.writeEach(project().resources, [&](const MPPResource& resource) {
        writeCalendarFixed2Data(fixed2Data(), resource.GUID(), resource.GUID(), baseCalendarGuid(calendarOf(resource)));
    });
}

void MPPCalendarStreamWriter::writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) {
    SecondCalendarRecord record;
    record.bits(CalendarRow::SecondBlock, CalendarRow::BaseCalendarGuid);
    SecondCalendarRecord standard = record;
    standard.bit(CalendarRow::IsStandard);
    standard.end(fixed2Meta, 0);
    for (std::size_t i = 0; i < 1 + project().baseCalendars.size() + project().resources.size(); ++i) {
        record.end(fixed2Meta, 0);
        stream.flush();
    }
}

namespace {

constexpr std::uint64_t kStandardID = 1;
constexpr std::uint64_t kDefaultID = 2;
constexpr std::uint64_t kFirstFreeID = 3;

} // namespace

bool MPP12CalendarWriter::calendarDataShouldBeWritten(const MPPCalendar& calendar) {
    if (!calendar.baseCalendar.record() && calendar.ID != kStandardID && calendar.ID != kDefaultID)
        return true;
    return calendar.ID != kDefaultID && definesAnything(calendar);
}

std::uint32_t& MPP12CalendarWriter::workWeekCounter() const { return processState().workWeeks2007; }

void MPP12CalendarWriter::preprocessProject(MPPProject& project) {
    assertThat(project.standardCalendar != nullptr, "The project has no standard calendar.");
    project.standardCalendar->name = "Standard";
    project.standardCalendar->ID = kStandardID;
    if (MPPCalendar* calendar = project.defaultResource()->calendar.record())
        calendar->ID = kDefaultID;
    if (!project.calendar.record())
        project.calendar.setRecord(project.standardCalendar);

    auto& baseCalendars = project.baseCalendars;
    baseCalendars.erase(std::remove(baseCalendars.begin(), baseCalendars.end(), project.standardCalendar),
                        baseCalendars.end());
    std::uint64_t nextID = kFirstFreeID;
    for (const auto& calendar : baseCalendars)
        calendar->ID = nextID++;

    for (const auto& resource : project.resources) {
        if (!resource->calendar.record()) {
            auto calendar = std::make_shared<MPPCalendar>();
            calendar->baseCalendar.setRecord(project.calendar.pointer());
            resource->calendar.setRecord(std::move(calendar));
        }
        MPPCalendar* calendar = resource->calendar.record();
        calendar->ID = nextID++;
        calendar->name.reset();
    }
}

bool MPP14CalendarWriter::calendarDataShouldBeWritten(const MPPCalendar& calendar) {
    if (calendar.ID == 1 || calendar.ID == 2)
        return false;
    return !calendar.baseCalendar.record() || definesAnything(calendar);
}

std::uint32_t& MPP14CalendarWriter::workWeekCounter() const { return processState().workWeeks2010; }

} // namespace brackwater
