#pragma once

#include "loss-report/LossReport.h"

#include "MPPXMLDOMFilter/Export/ExportMode.h"

#include <string>
#include <vector>

namespace brackwater::test {

/// Exports a bundle with the build's template, in UTC, and compares the two.
[[nodiscard]] lossreport::LossReport lossesOf(const std::string& bundle, ExportMode mode);

/// "note-emptied: t2 note: 'Grüße', ''"
[[nodiscard]] std::string lineOf(const lossreport::Loss& loss);

/// Paths of the bundles of the golden files.
[[nodiscard]] std::vector<std::string> goldenBundles();

} // namespace brackwater::test
