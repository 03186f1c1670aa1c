#include "MPPXMLDOMFilter/Corrections/SheetPositions.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

// The project's row is at 1.0.
void correctSheetPositions(MPPProject& project) {
    for (const auto& task : project.tasks)
        task->sheetPosition = static_cast<double>(task->ID) + 1.0;
}

} // namespace brackwater
