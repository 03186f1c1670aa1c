#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaseline.h"

#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPCExtensions.h"

namespace brackwater {

MSPEBaseline::MSPEBaseline(std::shared_ptr<XMLDocument> document) : _xmlDoc(std::move(document)) {}

std::optional<XMLElement> MSPEBaseline::getTaskById(std::string_view id) const {
    return singleObjectForXQuery(_xmlDoc->rootElement(), XMLQuery::childWithValue("task", "id", id));
}

std::optional<XMLElement> MSPEBaseline::getResourceById(std::string_view id) const {
    return singleObjectForXQuery(_xmlDoc->rootElement(), XMLQuery::childWithValue("resource", "id", id));
}

std::optional<XMLElement> MSPEBaseline::getAssignmentByTaskId(std::string_view taskId,
                                                              std::string_view resourceId) const {
    return singleObjectForXQuery(_xmlDoc->rootElement(),
                                 XMLQuery::anyDepthWithParentValue("assignment", "idref", resourceId, "id", taskId));
}

} // namespace brackwater
