#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoStreamWriter.h"

namespace brackwater {

namespace {

// Forms of a property's value.
constexpr std::uint32_t kShortForm = 2;
constexpr std::uint32_t kIntegerForm = 3;
constexpr std::uint32_t kTextForm = 30;

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

void SummaryProperties::addText(std::uint32_t id, std::string_view text) {
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
    SummaryProperties properties;
    createFieldAliasesData(properties, project().summaryInfo ? *project().summaryInfo : kNothing);

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

} // namespace brackwater
