#pragma once

#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoStreamWriter.h"

namespace brackwater {

/// Writes "\x05SummaryInformation".
class MPP12ProjectSInfoWriter : public MPPSummaryInfoStreamWriter {
public:
    using MPPSummaryInfoStreamWriter::MPPSummaryInfoStreamWriter;

protected:
    void openData(MPPSummaryInfoData& data) const override { data.open(); }
    void createFieldAliasesData(SummaryProperties& properties, const MPPSummaryInformation& info) const override;
};

} // namespace brackwater
