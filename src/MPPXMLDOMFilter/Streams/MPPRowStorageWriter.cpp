#include "MPPXMLDOMFilter/Streams/MPPRowStorageWriter.h"

#include "MPPXMLDOMFilter/Streams/RowBuilder.h"

#include <vector>

namespace brackwater {

void MPPRowStorageWriter::writeSteps() {
    const RowStorageLayout storage = layout();
    if (storage.descriptionEnding)
        writeElements(*storage.descriptionEnding);
    else
        copyChildFromTemplate("VarMeta");
    writeRows(storage.headerRows);
    writeSecondRows(storage.headerRows);
    writeProps();
    noteRows(storage.kind);
}

// One stream from its creation to its end: only one may be open at a time.
template <typename Fill>
void MPPRowStorageWriter::writeStream(const char* name, MPPData& data, const Fill& fill) {
    StreamOutput stream(writer(), name, data);
    fill(stream);
    stream.finish();
}

void MPPRowStorageWriter::writeElements(std::uint16_t descriptionEnding) {
    writeStream("Var2Data", *_var2Data, [&](StreamOutput& stream) { writeVar2Data(stream); });
    MPP12VarMeta varMeta(_var2Data, descriptionEnding);
    writeStream("VarMeta", varMeta, [&](StreamOutput& stream) {
        varMeta.writeMetaHeader();
        writeVarMeta(varMeta, stream);
    });
}

namespace {

constexpr std::size_t kRecordHead = 8; ///< start value, offset of the row

void writeHeaderRow(MPPFixedData& fixedData, std::size_t number) {
    RowBuilder<16> row;
    row.at(0).lowWord(number);
    row.at(2).word(0xFFFF);
    row.at(4).zeroes(12);
    row.endElement(fixedData);
}

// One bit tells that no record of the project stands there.
void writeHeaderRecord(MPPFixedMeta& fixedMeta, const HeaderRows& headers) {
    constexpr std::uint32_t kStartValue = 4;
    std::vector<std::uint8_t> bits(headers.fixedMetaSize - kRecordHead);
    bits.at(headers.bit / 8) = static_cast<std::uint8_t>(1U << (headers.bit % 8));
    fixedMeta.writeNextElementStartWithInt(kStartValue);
    fixedMeta.writeData(bits);
}

// In the second part header rows are zeros, and their records tell of no field.

void writeSecondHeaderRow(MPPFixedData& fixed2Data, const HeaderRows& headers) {
    fixed2Data.startNewElement();
    fixed2Data.writeZeroesBlockOfSize(headers.fixed2RowSize);
    fixed2Data.closeCurrentElement();
}

void writeSecondHeaderRecord(MPPFixedMeta& fixed2Meta, const HeaderRows& headers) {
    fixed2Meta.writeNextElementStartWithInt(0);
    fixed2Meta.writeZeroesBlockOfSize(headers.fixed2MetaSize - kRecordHead);
}

} // namespace

void MPPRowStorageWriter::writeRows(const HeaderRows& headers) {
    writeStream("FixedData", *_fixedData, [&](StreamOutput& stream) {
        for (std::size_t i = 0; i < headers.count; ++i)
            writeHeaderRow(*_fixedData, i);
        writeFixedData(stream);
    });
    MPPFixedMeta fixedMeta(_fixedData);
    writeStream("FixedMeta", fixedMeta, [&](StreamOutput& stream) {
        fixedMeta.writeMetaHeader();
        for (std::size_t i = 0; i < headers.count; ++i)
            writeHeaderRecord(fixedMeta, headers);
        writeFixedMeta(fixedMeta, stream);
    });
}

void MPPRowStorageWriter::writeSecondRows(const HeaderRows& headers) {
    writeStream("Fixed2Data", *_fixed2Data, [&](StreamOutput& stream) {
        for (std::size_t i = 0; i < headers.count; ++i)
            writeSecondHeaderRow(*_fixed2Data, headers);
        writeFixed2Data(stream);
    });
    MPPFixedMeta fixed2Meta(_fixed2Data);
    writeStream("Fixed2Meta", fixed2Meta, [&](StreamOutput& stream) {
        fixed2Meta.writeMetaHeader();
        for (std::size_t i = 0; i < headers.count; ++i)
            writeSecondHeaderRecord(fixed2Meta, headers);
        writeFixed2Meta(fixed2Meta, stream);
    });
}

void MPPRowStorageWriter::noteRows(MPPRowKind kind) const {
    if (!project().bookkeeping)
        return;
    MPPBookkeeping::Rows& rows = project().bookkeeping->of(kind);
    rows.count = static_cast<std::uint32_t>(_fixedData->elementsCount());
    rows.var2DataSize = static_cast<std::uint32_t>(_var2Data->cumulativeDataSize());
}

} // namespace brackwater
