#pragma once

#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"
#include "Platform/Xml/XMLElement.h"

#include <vector>

namespace brackwater {

class MSPEProjectMapper;

/// The custom fields of a task's or resource's element; of keys and values only as many as there are of both.
[[nodiscard]] MPPSourceFields sourceFields(XMLElement element);

/// The pieces of a split task, those that the document has; none for any other task.
[[nodiscard]] std::vector<MPPSourceSegment> sourceSegments(const MSPEProjectMapper& projectMapper, XMLElement zelbTask);

} // namespace brackwater
