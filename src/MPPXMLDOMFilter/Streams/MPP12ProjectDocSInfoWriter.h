#pragma once

#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoStreamWriter.h"

namespace brackwater {

/// Writes "\x05DocumentSummaryInformation".
class MPP12ProjectDocSInfoWriter : public MPPSummaryInfoStreamWriter {
public:
    using MPPSummaryInfoStreamWriter::MPPSummaryInfoStreamWriter;

protected:
    void openData(MPPSummaryInfoData& data) const override { data.openDoc(); }
    void createFieldAliasesData(SummaryProperties& properties, const MPPSummaryInformation& info) const override;
};

} // namespace brackwater
