#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPFixedData.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"
#include "MPPXMLDOMFilter/Streams/MPPStreamWriter.h"

#include <cstdint>

namespace brackwater {

/// What the storages of views, tables and entry lists share: they are the template's where the project keeps its views,
/// else a fixed minimum of four streams that holds one entry and nothing of the project or the template.
class MPPSingleEntryWriter : public MPPStreamWriter {
public:
    using MPPStreamWriter::MPPStreamWriter;

protected:
    void writeSteps() override;

    [[nodiscard]] virtual std::uint16_t descriptionEnding() const = 0;
    virtual void writeFixedElement(MPPFixedData& fixedData) const = 0;
    virtual void writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const = 0;

private:
    void writeMinimum();
};

/// Writes the storage "CV_iew": one view, the Gantt chart.
class MPP12CViewWriter : public MPPSingleEntryWriter {
public:
    using MPPSingleEntryWriter::MPPSingleEntryWriter;

protected:
    [[nodiscard]] std::uint16_t descriptionEnding() const override { return 3104; }
    void writeFixedElement(MPPFixedData& fixedData) const override;
    void writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const override;
};

/// Writes the storage "CTable": one table, the entry table.
class MPP12CTableWriter : public MPPSingleEntryWriter {
public:
    using MPPSingleEntryWriter::MPPSingleEntryWriter;

protected:
    [[nodiscard]] std::uint16_t descriptionEnding() const override { return 8256; }
    void writeFixedElement(MPPFixedData& fixedData) const override;
    void writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const override;
};

/// Writes the storage "CEdl": one blank entry list.
class MPP12CEdlWriter : public MPPSingleEntryWriter {
public:
    using MPPSingleEntryWriter::MPPSingleEntryWriter;

protected:
    [[nodiscard]] std::uint16_t descriptionEnding() const override { return 8256; }
    void writeFixedElement(MPPFixedData& fixedData) const override;
    void writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const override;
};

} // namespace brackwater
