#include "TWMSPCommon/MSPExportMapper/MSPEAssignmentBaselineMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAssignmentBaselineAdapter.h"

namespace brackwater {

std::shared_ptr<MSPEXMLAssignmentBaselineAdapter>
MSPEAssignmentBaselineMapper::newBaselineFromZelbAssignment(XMLElement zelbAssignment) const {
    const auto task = zelbAssignment.parent();
    std::string taskBuffer;
    const auto taskId = task ? task->attributeView("id", taskBuffer) : std::nullopt;
    std::string resourceBuffer;
    const auto resourceId = zelbAssignment.attributeView("idref", resourceBuffer);
    if (!taskId || !resourceId || !baseline().getAssignmentByTaskId(*taskId, *resourceId))
        return nullptr;
    return newNumberedBaseline<MSPEXMLAssignmentBaselineAdapter>();
}

} // namespace brackwater
