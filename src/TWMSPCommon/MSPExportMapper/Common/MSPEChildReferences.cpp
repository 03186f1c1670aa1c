#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildReferences.h"

#include "TWMSPCommon/MSPCExtensions.h"

#include <string>

namespace brackwater {

MSPEChildReferences::MSPEChildReferences(XMLElement zelbScenario, XMLElement group, std::string_view referenceName,
                                         std::string_view childName)
    : _scenario(zelbScenario), _referenceName(referenceName), _childName(childName), _next(group.firstChildElement()) {
    skipOtherElements();
}

std::optional<XMLElement> MSPEChildReferences::nextChild() {
    while (_next) {
        const auto id = _next->attributeView("idref");
        _next = _next->nextSiblingElement();
        skipOtherElements();
        if (!id)
            continue;
        if (const auto child = singleObjectForXQuery(_scenario, XMLQuery::childWithValue(_childName, "id", *id)))
            return child;
    }
    return std::nullopt;
}

void MSPEChildReferences::skipOtherElements() {
    while (_next && _next->name() != _referenceName)
        _next = _next->nextSiblingElement();
}

} // namespace brackwater
