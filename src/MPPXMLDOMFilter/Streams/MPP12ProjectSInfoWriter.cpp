#include "MPPXMLDOMFilter/Streams/MPP12ProjectSInfoWriter.h"

#include <array>

namespace brackwater {

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

} // namespace brackwater
