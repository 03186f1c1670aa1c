#pragma once

#include "MPPXMLDOMFilter/Container/MPPWriter.h"

#include <functional>
#include <memory>
#include <string>

namespace brackwater {

class ExportProgress;

/// Where and why a write stopped, for the driver's log line.
struct MPPWriteFailure {
    std::string entryPath; ///< "   112/TBkndCal", or the path of the template or the output if no entry was reached
    std::string reason;
};

/// Changes to the records between preprocessing and writing.
using MPPModelPass = std::function<void(MPPProject&)>;

/// The walk: goes through a template's tree entry by entry and rewrites or copies each entry.
class MPPProjectWriter {
public:
    /// True if the whole file was written; `output` then has its path. On false, `failure` (may be null) says where and
    /// why, and the partial output remains. `progress` may be null.
    static bool writeProject(MPPProject* project, NumberedPath& output, const FileURL& templateUrl,
                             MPPWriteFailure* failure = nullptr, const MPPModelPass& beforeWriting = {},
                             ExportProgress* progress = nullptr);
    static bool writeProject(MPPProject* project, const FileURL& outputUrl, const FileURL& templateUrl,
                             MPPWriteFailure* failure = nullptr, const MPPModelPass& beforeWriting = {},
                             ExportProgress* progress = nullptr);
    static int getFormatVersionOfTemplateAtUrl(const FileURL& templateUrl);
    static void preprocessProject(MPPProject& project);
    /// Creates the child in the output and the writer for its name and its parent's; nothing if the child cannot be
    /// created.
    static std::unique_ptr<MPPWriter> createWriterForRootSonName(const std::string& name, MPPFormatWriter& parent,
                                                                 std::shared_ptr<MPPFormatReader> reader);
};

} // namespace brackwater
