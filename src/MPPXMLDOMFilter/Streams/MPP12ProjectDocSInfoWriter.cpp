#include "MPPXMLDOMFilter/Streams/MPP12ProjectDocSInfoWriter.h"

namespace brackwater {

void MPP12ProjectDocSInfoWriter::createFieldAliasesData(SummaryProperties& properties,
                                                        const MPPSummaryInformation& info) const {
    properties.addShort(1, 1251); // code page
    properties.addText(2, info.category);
    properties.addText(14, info.manager);
    properties.addText(15, info.company);
}

} // namespace brackwater
