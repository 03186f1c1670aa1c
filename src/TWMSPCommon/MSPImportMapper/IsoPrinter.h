#pragma once

#include "TWMSPCommon/MSPCDateComponents.h"

#include <string>

namespace brackwater::iso {

/// Prints the fields of date, time and zone that the mask names, in ISO's order, with the separators of those that are
/// there. Year "%d", other fields "%02d", an unset field as the greatest number; the offset with its sign once.
[[nodiscard]] std::string print(const MSPCDateComponents& components, UnitMask units);

} // namespace brackwater::iso
