#pragma once

#include "PropsFrame.h"

namespace brackwater::layout {

/// Adds the project properties that all real files have and no export sets, with their most common values.
void addStandardProps(PropsFrame& props);

} // namespace brackwater::layout
