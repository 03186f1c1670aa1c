#include "MPPXMLDOMFilter/Export/MappedProject.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLDocumentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "TWMSPCommon/MSPExportMapper/MSPEMapper.h"

#include <fmt/core.h>

namespace brackwater {

MappedProject mapSourceDocuments(MSPESourceDocuments documents, const FileURL& templateUrl) {
    const bool hasMainDocument = documents.mainDocument != nullptr;
    MSPEMapper mapper(std::move(documents.mainDocument), std::move(documents.tableOfContents),
                      std::move(documents.baselines), templateUrl);
    mapper.map();
    if (mapper.mspdiXmlDoc())
        return {mapper.mspdiXmlDoc()->rootElement()->mppDomObject(), {}};
    if (!hasMainDocument)
        return {nullptr, fmt::format("no scenario has the id \"{}\" that the front window edits",
                                     documents.editingScenarioId.value_or("(null)"))};
    return {nullptr, mapper.notMappedReason()};
}

} // namespace brackwater
