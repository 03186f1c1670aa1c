#pragma once

#include "ByteBuilder.h"

namespace brackwater::layout {

/// "\x01CompObj": what kind of document this is.
[[nodiscard]] Bytes compObj();
/// "\x05SummaryInformation" and "\x05DocumentSummaryInformation": property sets with empty texts.
[[nodiscard]] Bytes summaryInformation();
[[nodiscard]] Bytes documentSummaryInformation();

} // namespace brackwater::layout
