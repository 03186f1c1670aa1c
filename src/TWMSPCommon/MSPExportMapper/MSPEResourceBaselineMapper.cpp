#include "TWMSPCommon/MSPExportMapper/MSPEResourceBaselineMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceBaselineAdapter.h"

namespace brackwater {

std::shared_ptr<MSPEXMLResourceBaselineAdapter>
MSPEResourceBaselineMapper::newBaselineFromZelbResource(XMLElement zelbResource) const {
    std::string buffer;
    const auto id = zelbResource.attributeView("id", buffer);
    if (!id || !baseline().getResourceById(*id))
        return nullptr;
    return newNumberedBaseline<MSPEXMLResourceBaselineAdapter>();
}

} // namespace brackwater
