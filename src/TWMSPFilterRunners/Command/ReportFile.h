#pragma once

#include "TWMSPFilterRunners/Command/ExportPlan.h"
#include "TWMSPFilterRunners/Command/ExportResult.h"
#include "TWMSPFilterRunners/Command/FileDescriptor.h"
#include "TWMSPFilterRunners/Command/StopRequests.h"
#include "mppinspect/JsonWriter.h"

#include <string>

namespace brackwater {

/// The report of a run as one JSON document; its keys are told in docs/json.md. It stands under its name once it is
/// whole, and replaces an earlier one then. What is no regular file, a pipe or a terminal, is written to at once.
class ReportFile {
public:
    /// Raises UsageError where the file cannot be written. Requests end the wait for the reader of a pipe.
    ReportFile(const std::string& path, const std::string& templatePath, const StopRequests& requests);
    /// Leaves no file behind that is not whole.
    ~ReportFile();
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    /// Bundles in the order of the jobs.
    void add(const ExportJob& job, const ExportResult& result);
    /// A bundle that was not looked at any more.
    void addInterrupted(const ExportJob& job);
    /// Ends the document and moves it into place; false where it is not whole.
    [[nodiscard]] bool finish(int status);

private:
    void beginBundle(const ExportJob& job, std::string_view status);
    void write(std::string_view text);

    std::string _path;
    std::string _temporaryPath; ///< empty where the file is written to at once
    FileDescriptor _file;
    const StopRequests& _requests;
    bool _isWhole = true;
    inspect::JsonWriter _json;
};

} // namespace brackwater
