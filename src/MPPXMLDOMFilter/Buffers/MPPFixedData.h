#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"

namespace brackwater {

/// "FixedData" and "Fixed2Data": rows side by side, without stream header or row framing.
class MPPFixedData : public MPPOffsetMarkedData {};

} // namespace brackwater
