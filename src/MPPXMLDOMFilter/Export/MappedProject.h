#pragma once

#include "MPPXMLDOMFilter/Export/ExportMode.h"
#include "MPPXMLDOMFilter/Export/MSPEDocumentLoader.h"

#include <memory>
#include <string>

namespace brackwater {

class ExportProgress;
struct MPPProject;

/// What the mapping made of a bundle's documents: a project, or why there is none.
struct MappedProject {
    std::shared_ptr<MPPProject> project; ///< null when the main document is missing or not of the source format
    std::string notMappedReason;         ///< a sentence for people; empty with a project
};

/// Maps the documents and frees them. The records keep the source's values where the mode asks for corrections.
/// `progress` may be null; `threads` is how many may work at once, the caller's included. Raises what the mapping
/// raises.
[[nodiscard]] MappedProject mapSourceDocuments(MSPESourceDocuments documents, const FileURL& templateUrl,
                                               ExportMode mode, ExportProgress* progress = nullptr, int threads = 1);

} // namespace brackwater
