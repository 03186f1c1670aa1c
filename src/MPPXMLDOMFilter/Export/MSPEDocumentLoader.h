#pragma once

#include "Platform/Files/FileURL.h"
#include "Platform/Xml/XMLDocument.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

inline constexpr std::string_view kTWMSPDIExporterException = "TWMSPDIExporterException";
inline constexpr std::string_view kMSPEXMLException = "MSPEXMLException";

/// The documents of a bundle that an export reads.
struct MSPESourceDocuments {
    std::shared_ptr<XMLDocument> tableOfContents;
    /// Id of the scenario that the front window edits; nothing where the window names none.
    std::optional<std::string> editingScenarioId;
    /// That scenario; null when no scenario has the id.
    std::shared_ptr<XMLDocument> mainDocument;
    /// The scenario that the front window compares with, in the order of the table of contents.
    std::vector<std::shared_ptr<XMLDocument>> baselines;
};

/// Reads the table of contents and the scenarios that the front window shows; logs a warning for every other scenario
/// and does not open it. Raises where a document cannot be read, where the table of contents lacks its project or
/// window, and where it names more baselines than a file holds.
[[nodiscard]] MSPESourceDocuments loadSourceDocuments(const FileURL& bundleUrl, int threads = 1);

} // namespace brackwater
