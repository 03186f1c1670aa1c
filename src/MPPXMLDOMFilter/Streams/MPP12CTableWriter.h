#pragma once

#include "MPPXMLDOMFilter/Streams/MPPSingleEntryWriter.h"

namespace brackwater {

/// Writes the storage "CTable": one table, the entry table.
class MPP12CTableWriter : public MPPSingleEntryWriter {
public:
    using MPPSingleEntryWriter::MPPSingleEntryWriter;

protected:
    [[nodiscard]] std::uint16_t descriptionEnding() const override { return 8256; }
    void writeFixedElement(MPPFixedData& fixedData) const override;
    void writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const override;
};

} // namespace brackwater
