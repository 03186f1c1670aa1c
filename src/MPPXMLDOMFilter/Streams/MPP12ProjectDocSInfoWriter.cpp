#include "MPPXMLDOMFilter/Streams/MPP12ProjectDocSInfoWriter.h"

namespace brackwater {

void MPP12ProjectDocSInfoWriter::createFieldAliasesData(SummaryProperties& properties,
                                                        const MPPSummaryInformation& info) const {
    properties.addCodePage(1);
    properties.addText(2, info.category);
    properties.addText(14, info.manager);
    properties.addText(15, info.company);
}

} // namespace brackwater
