#pragma once

#include "TWMSPFilterRunners/Command/ExportPlan.h"
#include "TWMSPFilterRunners/Command/ExportResult.h"
#include "TWMSPFilterRunners/Command/FileDescriptor.h"
#include "TWMSPFilterRunners/Command/StopRequests.h"
#include "mppinspect/JsonWriter.h"

#include <string>

namespace brackwater {

/// The report of a run as one JSON document; docs/json.md describes its keys. It appears under its name when it is
/// complete, replacing an earlier one. Anything but a regular file, such as a pipe or a terminal, is written to
/// directly.
class ReportFile {
public:
    /// Raises UsageError if the file is not writable. Stop requests end the wait for a slow reader of a pipe.
    ReportFile(const std::string& path, const std::string& templatePath, const StopRequests& requests);
    /// Removes an incomplete file.
    ~ReportFile();
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    /// Call in the order of the jobs.
    void add(const ExportJob& job, const ExportResult& result);
    /// A bundle that the run did not reach.
    void addInterrupted(const ExportJob& job);
    /// Ends the document and moves it to its path; false if it is incomplete.
    [[nodiscard]] bool finish(int status);

private:
    void beginBundle(const ExportJob& job, std::string_view status);
    void write(std::string_view text);

    std::string _path;
    std::string _temporaryPath; ///< empty if the file is written to directly
    FileDescriptor _file;
    const StopRequests& _requests;
    bool _isWhole = true;
    inspect::JsonWriter _json;
};

} // namespace brackwater
