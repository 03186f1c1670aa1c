#pragma once

#include "MPPXMLDOMFilter/Export/ExportMode.h"
#include "Platform/Files/FileURL.h"
#include "Platform/Values/ExportProgress.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

class NumberedPath;
struct MPPProject;

inline constexpr std::string_view kTWMPPExporterException = "TWMPPExporterException";
/// Stands for the name of a failure that has none, such as exhausted memory.
inline constexpr std::string_view kGenericException = "NSGenericException";

/// What an exporter is told and tells; texts by key.
using MSPEExportInfo = std::map<std::string, std::string>;

/// Base name of the bundle, set by the runner.
inline constexpr std::string_view kInfoMSPDIProjectName = "InfoMSPDIProjectName";
/// Text of the template's URL, set by the exporter.
inline constexpr std::string_view kInfoMPPTemplateUrl = "InfoMPPTemplateUrl";

/// One whole export: checks the URLs, makes the output's name unique, loads the bundle, maps it and has it written.
/// One exporter serves one export.
class MSPEMPPExporter {
public:
    explicit MSPEMPPExporter(MSPEExportInfo info, ExportMode mode = ExportMode::Exact)
        : _info(std::move(info)), _mode(mode) {}

    /// True when the project was written. Lets no failure escape: each is logged and makes the result false. An
    /// existing destination is not touched, "Plan.mpp" becomes "Plan-1.mpp", also where it comes meanwhile. A write
    /// that stops leaves the output as far as it got.
    bool exportZelbBundle(const std::optional<FileURL>& bundleUrl, const std::optional<FileURL>& mppUrl,
                          const std::optional<FileURL>& templateUrl);

    /// Why the export failed, in words for people; empty before one and after one that succeeded.
    [[nodiscard]] const std::string& failureText() const noexcept { return _failureText; }
    /// Tasks in the file.
    [[nodiscard]] std::size_t numberOfTasks() const noexcept { return _numberOfTasks; }
    /// Is told how far the export is; may be null, and must outlive the export.
    void setProgress(ExportProgress* progress) noexcept { _progress = progress; }
    /// On how many threads it may work at once, the caller's included. File and log are the same for any number.
    void setThreads(int threads) noexcept { _threads = threads; }

    [[nodiscard]] const MSPEExportInfo& info() const noexcept { return _info; }

private:
    bool exportCheckedBundle(const FileURL& bundleUrl, NumberedPath& output, const FileURL& templateUrl);
    bool writeMappedProject(MPPProject& project, NumberedPath& output, const FileURL& templateUrl);
    /// Logs why the file was not written, or not wholly.
    void warnOfFailure(std::string text);
    void begin(ExportPhase phase) const;

    MSPEExportInfo _info;
    ExportMode _mode;
    ExportProgress* _progress = nullptr;
    int _threads = 1;
    std::string _failureText;
    std::size_t _numberOfTasks = 0;
};

} // namespace brackwater
