#pragma once

#include "PropsFrame.h"

namespace brackwater::layout {

/// Adds the properties of the project that all real files have and no export sets, with the values that most of them
/// hold.
void addStandardProps(PropsFrame& props);

} // namespace brackwater::layout
