#pragma once

#include "TWMSPCommon/MSPCDateComponents.h"

#include <string>

namespace brackwater::iso {

/// Prints the date, time and zone fields in the mask, in ISO order, with the separators of those present. Year "%d",
/// other fields "%02d", an unset field as the greatest number; the offset with a single sign.
[[nodiscard]] std::string print(const MSPCDateComponents& components, UnitMask units);

} // namespace brackwater::iso
