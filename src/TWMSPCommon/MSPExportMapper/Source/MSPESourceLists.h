#pragma once

#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"
#include "Platform/Xml/XMLElement.h"

#include <vector>

namespace brackwater {

class MSPEProjectMapper;

/// The custom fields of a task's or resource's element; surplus keys or values are ignored.
[[nodiscard]] MPPSourceFields sourceFields(XMLElement element);

/// The pieces of a split task that exist in the document; none for any other task.
[[nodiscard]] std::vector<MPPSourceSegment> sourceSegments(const MSPEProjectMapper& projectMapper, XMLElement zelbTask);

} // namespace brackwater
