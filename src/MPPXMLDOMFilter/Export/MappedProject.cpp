#include "MPPXMLDOMFilter/Export/MappedProject.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

#include <fmt/core.h>

namespace brackwater {

MappedProject mapSourceDocuments(MSPESourceDocuments documents, const FileURL& /*templateUrl*/) {
    if (!documents.mainDocument)
        return {nullptr, fmt::format("no scenario has the id \"{}\" that the front window edits",
                                     documents.editingScenarioId.value_or("(null)"))};
    return {std::make_shared<MPPProject>(), {}};
}

} // namespace brackwater
