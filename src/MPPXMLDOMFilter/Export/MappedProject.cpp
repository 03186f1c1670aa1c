#include "MPPXMLDOMFilter/Export/MappedProject.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLDocumentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"

#include <fmt/core.h>

#include <utility>

namespace brackwater {

namespace {

std::string missingScenario(const std::optional<std::string>& editingScenarioId) {
    if (!editingScenarioId)
        return "The front window does not say which scenario it edits.";
    return fmt::format("The bundle has no scenario with the id \"{}\", which the front window edits.",
                       *editingScenarioId);
}

} // namespace

MappedProject mapSourceDocuments(MSPESourceDocuments documents, const FileURL& templateUrl, ExportMode mode,
                                 ExportProgress* progress, int threads) {
    const bool hasMainDocument = documents.mainDocument != nullptr;
    MSPEMapper mapper(std::move(documents.mainDocument), std::move(documents.tableOfContents),
                      std::move(documents.baselines), templateUrl, mode == ExportMode::Corrected);
    mapper.setProgress(progress);
    mapper.setThreads(threads);
    mapper.map();
    if (const auto& mapped = mapper.mspdiXmlDoc())
        return {mapped->rootElement()->mppDomObject(), {}};
    return {nullptr, hasMainDocument ? mapper.notMappedReason() : missingScenario(documents.editingScenarioId)};
}

} // namespace brackwater
