#include "MPPXMLDOMFilter/Streams/MPP12ProjectPropsWriter.h"

#include "MPPXMLDOMFilter/Streams/RecordValues.h"

#include <array>

namespace brackwater {

namespace {

constexpr std::uint32_t kFirstBaselineSaveDate = 0x02401396;
constexpr std::uint32_t kLastBaselineSaveDate = 0x0240139F;

void writeText(MPPData& value, const std::optional<std::string>& text) {
    value.writeString(textOf(text), MPPEncoding::Unicode);
}

void writeAuthor(MPPData& value, const MPPProject& project) {
    const bool hasAuthor = project.summaryInfo && project.summaryInfo->author;
    value.writeString(hasAuthor ? std::string_view(*project.summaryInfo->author) : " ", MPPEncoding::Unicode);
}

void writeWord(MPPData& value, std::uint64_t number) { value.write2ByteInteger(static_cast<std::uint16_t>(number)); }
void writeWord(MPPData& value, std::int32_t number) { value.write2ByteInteger(static_cast<std::uint16_t>(number)); }

void writeBaselineSaveDate(MPPData& value, const MPPProject& project, std::size_t index) {
    const auto& dates = project.baselineSaveDates;
    value.writeDate(index < dates.size() ? dates[index] : std::nullopt);
}

// The file's own numbers: a row's kind stands in the low digits of the type.
bool writeBookkeeping(MPPData& value, std::uint32_t type, const MPPBookkeeping& bookkeeping) {
    constexpr std::uint32_t kRowCount = 0x01000000;
    constexpr std::uint32_t kVar2DataSize = 0x00010000;
    constexpr std::array kKinds = {MPPRowKind::Task, MPPRowKind::Resource, MPPRowKind::Calendar, MPPRowKind::Assignment,
                                   MPPRowKind::Link};
    for (const MPPRowKind kind : kKinds) {
        const auto number = static_cast<std::uint32_t>(kind);
        if (type != (kRowCount | number) && type != (kVar2DataSize | number))
            continue;
        const MPPBookkeeping::Rows& rows = bookkeeping.of(kind);
        value.writeInteger(type == (kRowCount | number) ? rows.count : rows.var2DataSize);
        return true;
    }
    return false;
}

// False for a type that is not known.
bool writeValue(MPPData& value, std::uint32_t type, const MPPProject& project) {
    const MPPCalendar* calendar = project.calendar.record();
    switch (type) {
    case 0x02400002:
        value.writeDate(project.startDate);
        return true;
    case 0x02400003:
        value.writeDate(project.endDate);
        return true;
    case 0x02400004:
        value.write2ByteInteger(project.scheduleFromStart ? 1 : 0);
        return true;
    case 0x02400008:
    case 0x35400008:
        writeText(value, project.title);
        return true;
    case 0x0240000C:
        writeAuthor(value, project);
        return true;
    case 0x0240000E:
        writeText(value, calendar ? calendar->name : std::nullopt);
        return true;
    case 0x02400010:
        writeText(value, project.currencySymbol);
        return true;
    case 0x02400011:
        writeWord(value, project.currencySymbolPosition);
        return true;
    case 0x02400012:
        writeWord(value, project.currencyDigits);
        return true;
    case 0x02400015:
        writeWord(value, project.durationFormat);
        return true;
    case 0x02400016:
        writeWord(value, project.workFormat);
        return true;
    case 0x0240001D:
        value.writeInteger(static_cast<std::uint32_t>(project.minutesPerDay));
        return true;
    case 0x0240001E:
        value.writeInteger(static_cast<std::uint32_t>(project.minutesPerWeek));
        return true;
    case 0x02400025:
        writeWord(value, project.weekStartDay);
        return true;
    case 0x0240003A:
        value.write2ByteInteger(project.honorConstraints ? 0 : 1);
        return true;
    case 0x0240138F:
        writeWord(value, project.daysPerMonth);
        return true;
    case 0x02401395:
        value.writeDate(project.baseline0SaveDate);
        return true;
    case 0x024013BB:
        writeText(value, project.currencyCode);
        return true;
    case 0x024013C2:
        value.writeGUID(calendar ? &calendar->GUID() : nullptr);
        return true;
    default:
        if (project.bookkeeping && writeBookkeeping(value, type, *project.bookkeeping))
            return true;
        if (type < kFirstBaselineSaveDate || type > kLastBaselineSaveDate)
            return false;
        writeBaselineSaveDate(value, project, type - kFirstBaselineSaveDate);
        return true;
    }
}

} // namespace

std::unique_ptr<MPPData> MPP12ProjectPropsWriter::constructValueForPropertyType(std::uint32_t type,
                                                                                const MPPProject& project) {
    auto value = std::make_unique<MPPData>();
    return writeValue(*value, type, project) ? std::move(value) : nullptr;
}

void MPP12ProjectPropsWriter::writeSteps() {
    MPP12SequentialPropsReader propsReader(reader());
    MPPProps props(propsReader.magicHeaderInt());
    props.open();
    while (propsReader.readNextProperty())
        writeValueForCurrentlySelectedProperty(propsReader, props);
    props.close();
    writeEntry(props);
}

void MPP12ProjectPropsWriter::writeValueForCurrentlySelectedProperty(const MPP12SequentialPropsReader& reader,
                                                                     MPPProps& props) const {
    const std::uint32_t size = reader.headerWord(0);
    const std::uint32_t type = reader.headerWord(1);
    const std::uint32_t thirdWord = reader.headerWord(2);
    const auto newValue = constructValueForPropertyType(type, project());
    const std::span<const std::uint8_t> payload = newValue ? newValue->data() : reader.curPropertyData();

    props.setWriteSizeTwice(size == thirdWord);
    props.startNewElementForType(type, thirdWord);
    props.writeData(payload);
    props.closeCurrentElement();
    if (payload.size() % 2 != 0)
        props.write1ByteInteger(0xFF); // stands outside the element's size
}

} // namespace brackwater
