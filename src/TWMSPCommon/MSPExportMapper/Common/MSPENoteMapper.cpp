#include "TWMSPCommon/MSPExportMapper/Common/MSPENoteMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"

namespace brackwater {

namespace {

void appendRun(XMLElement run, std::string& notes) {
    std::string buffer;
    if (const auto content = singleObjectForXQuery(run, "lit"))
        notes += content->textView(buffer);
}

std::string plainText(XMLElement text) {
    std::string notes;
    forEachChildElement(text, "p", [&notes](XMLElement paragraph) {
        forEachChildElement(paragraph, "run", [&notes](XMLElement run) { appendRun(run, notes); });
        notes += '\n';
    });
    return notes;
}

} // namespace

std::shared_ptr<MSPEXMLNotesAdapter> MSPENoteMapper::newNotesFromZELBNote(XMLElement zelbNote) const {
    const auto text = singleObjectForXQuery(zelbNote, "text");
    return text ? std::make_shared<MSPEXMLNotesAdapter>("Notes", mapper(), plainText(*text)) : nullptr;
}

} // namespace brackwater
