#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoWriters.h"

#include "Platform/Text/TextEncoding.h"

#include <array>

namespace brackwater {

namespace {

// Forms of a property's value.
constexpr std::uint32_t kShortForm = 2;
constexpr std::uint32_t kIntegerForm = 3;
constexpr std::uint32_t kTextForm = 30;
constexpr std::uint32_t kWideTextForm = 31;

constexpr std::uint32_t kCyrillicCodePage = 1251;
constexpr std::uint32_t kWesternCodePage = 1252;

constexpr std::size_t kTableEntrySize = 8;
constexpr std::size_t kSectionHeadSize = 8; // size and number of properties

} // namespace

void SummaryProperties::start(std::uint32_t id, std::uint32_t form) {
    _values.startNewElement();
    _values.writeInteger(form);
    _ids.push_back(id);
}

void SummaryProperties::addShort(std::uint32_t id, std::uint32_t value) {
    start(id, kShortForm);
    _values.writeInteger(value);
    _values.closeCurrentElement();
}

void SummaryProperties::addInteger(std::uint32_t id, std::uint32_t value) {
    start(id, kIntegerForm);
    _values.writeInteger(value);
    _values.closeCurrentElement();
}

void SummaryProperties::addCodePage(std::uint32_t id) {
    addShort(id, _texts == MPPSummaryTexts::Standard ? kWesternCodePage : kCyrillicCodePage);
}

void SummaryProperties::addText(std::uint32_t id, std::string_view text) {
    if (_texts == MPPSummaryTexts::Standard)
        addStandardText(id, text);
    else
        addAsciiText(id, text);
}

// Zero bytes end the text and fill it up to a multiple of four; they count as part of it.
void SummaryProperties::addStandardText(std::uint32_t id, std::string_view text) {
    constexpr std::size_t kAlignment = 4;
    std::vector<std::uint8_t> bytes;
    const bool isWide = !appendAsCodePage1252(bytes, text);
    if (isWide && !appendAsUTF16LE(bytes, text))
        bytes.clear();
    const std::size_t unit = isWide ? 2 : 1;
    bytes.resize((bytes.size() + unit + kAlignment - 1) / kAlignment * kAlignment);

    start(id, isWide ? kWideTextForm : kTextForm);
    _values.writeInteger(static_cast<std::uint32_t>(bytes.size() / unit));
    _values.writeData(bytes);
    _values.closeCurrentElement();
}

void SummaryProperties::addAsciiText(std::uint32_t id, std::string_view text) {
    start(id, kTextForm);
    const std::size_t sizeOffset = _values.dataSize();
    _values.writeInteger(0);
    const std::size_t begin = _values.dataSize();
    _values.writeString(text, MPPEncoding::ASCII);
    _values.writeIntegerAtOffset(static_cast<std::uint32_t>(_values.dataSize() - begin), sizeOffset);
    _values.closeCurrentElement();
}

void SummaryProperties::addText(std::uint32_t id, const std::optional<std::string>& text) {
    if (text)
        addText(id, std::string_view(*text));
}

void SummaryProperties::addTextBytes(std::uint32_t id, std::span<const std::uint8_t> bytes) {
    start(id, kTextForm);
    _values.writeInteger(static_cast<std::uint32_t>(bytes.size()));
    _values.writeData(bytes);
    _values.closeCurrentElement();
}

void MPPSummaryInfoStreamWriter::writeSteps() {
    static const MPPSummaryInformation kNothing;
    const MPPSummaryInformation& info = project().summaryInfo ? *project().summaryInfo : kNothing;
    SummaryProperties properties(info.texts);
    createFieldAliasesData(properties, info);

    MPPSummaryInfoData data;
    openData(data);
    const std::size_t count = properties.ids().size();
    const std::size_t valuesOffset = kSectionHeadSize + kTableEntrySize * count; // from the section's start
    for (std::size_t i = 0; i < count; ++i) {
        data.writeInteger(properties.ids()[i]);
        data.writeInteger(static_cast<std::uint32_t>(valuesOffset + properties.values().offsetOfElementAtIndex(i)));
    }
    data.writeData(properties.values().data());
    data.close(static_cast<std::uint16_t>(count));
    writeEntry(data);
}

void MPP12ProjectSInfoWriter::createFieldAliasesData(SummaryProperties& properties,
                                                     const MPPSummaryInformation& info) const {
    static constexpr std::array<std::uint8_t, 4> kRevision = {0x31, 0x00, 0x00, 0x00}; // "1"
    properties.addCodePage(1);
    properties.addText(2, info.title);
    properties.addText(4, info.author);
    properties.addText(5, info.keywords);
    properties.addText(6, info.comments);
    properties.addText(8, info.creator);
    properties.addTextBytes(9, kRevision);
    properties.addText(18, std::string_view("Microsoft MPPProject"));
    properties.addInteger(19, 0);
}

void MPP12ProjectDocSInfoWriter::createFieldAliasesData(SummaryProperties& properties,
                                                        const MPPSummaryInformation& info) const {
    properties.addCodePage(1);
    properties.addText(2, info.category);
    properties.addText(14, info.manager);
    properties.addText(15, info.company);
}

} // namespace brackwater
