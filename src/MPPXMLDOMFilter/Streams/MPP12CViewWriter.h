#pragma once

#include "MPPXMLDOMFilter/Streams/MPPSingleEntryWriter.h"

namespace brackwater {

/// Writes the storage "CV_iew": one view, the Gantt chart.
class MPP12CViewWriter : public MPPSingleEntryWriter {
public:
    using MPPSingleEntryWriter::MPPSingleEntryWriter;

protected:
    [[nodiscard]] std::uint16_t descriptionEnding() const override { return 3104; }
    void writeFixedElement(MPPFixedData& fixedData) const override;
    void writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const override;
};

} // namespace brackwater
