#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"

#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Corrections/Corrections.h"
#include "MPPXMLDOMFilter/Export/MSPEDocumentLoader.h"
#include "MPPXMLDOMFilter/Export/MappedProject.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"
#include "Platform/Files/NumberedPath.h"
#include "Platform/Files/PathText.h"
#include "Platform/Log/Log.h"
#include "Platform/Time/TimeZone.h"
#include "Platform/Values/Exception.h"

#include <memory>
#include <vector>

namespace brackwater {

namespace {

struct UrlCheck {
    std::string_view role;           ///< "Source"
    std::string_view extension;      ///< in lower case
    std::string_view wantedDocument; ///< what a URL with another extension is told
};

constexpr UrlCheck kSourceCheck = {"Source", "zelb", "a Tarnwick 2 document bundle (.zelb directory)"};
constexpr UrlCheck kDestinationCheck = {"Destination", "mpp", "a MS Project MPP document"};
constexpr UrlCheck kTemplateCheck = {"Template", "mpp", "a MS Project MPP document"};

void checkUrl(const std::optional<FileURL>& url, const UrlCheck& check) {
    const auto refuse = [&check](std::string_view fault) {
        throw Exception(
            kTWMPPExporterException,
            fmt::format("MSPEMPPExporter exportZelbBundle:toMppURL:withMppTemplate: {} {}.", check.role, fault));
    };
    if (!url)
        refuse("URL not specified");
    if (!url->isFileURL())
        refuse("must be a file system");
    if (lowercaseString(pathExtension(lastPathComponent(url->path()))) != check.extension)
        refuse(fmt::format("must be {}", check.wantedDocument));
}

/// A list of records as text, one a line.
template <typename Record>
std::string descriptionOfRecords(const std::vector<std::shared_ptr<Record>>& records) {
    std::string text = "(";
    for (const auto& record : records) {
        text += text.size() > 1 ? ",\n    " : "\n    ";
        text += record->description();
    }
    return text + "\n)";
}

void logRecords(const MPPProject& project) {
    constexpr std::string_view beginning = "project.";
    if (!isLogRead(beginning))
        return;
    logLine("project.tasks: {}", descriptionOfRecords(project.tasks));
    logLine("project.resources: {}", descriptionOfRecords(project.resources));
}

} // namespace

bool MSPEMPPExporter::exportZelbBundle(const std::optional<FileURL>& bundleUrl, const std::optional<FileURL>& mppUrl,
                                       const std::optional<FileURL>& templateUrl) {
    const CompoundFileLibrary library;
    try {
        checkUrl(bundleUrl, kSourceCheck);
        checkUrl(mppUrl, kDestinationCheck);
        checkUrl(templateUrl, kTemplateCheck);
        NumberedPath output(mppUrl->path());
        output.findFree();
        const bool success = exportCheckedBundle(*bundleUrl, output, *templateUrl);
        logLine("MSPEMPPExporter: Finished with success={}", success ? "YES" : "NO");
        return success;
    } catch (const Exception& exception) {
        logLine("EXCEPTION: {}\n{}\n{}", exception.name(), exception.reason(), exception.userInfo());
        // Where there is further information, it is what tells people something.
        _failureText = exception.userInfo().empty() ? exception.reason() : exception.userInfo();
    } catch (const std::exception& exception) {
        logLine("EXCEPTION: {}\n{}\n{}", kGenericException, exception.what(), "");
        _failureText = exception.what();
    }
    return false;
}

bool MSPEMPPExporter::exportCheckedBundle(const FileURL& bundleUrl, NumberedPath& output, const FileURL& templateUrl) {
    const SystemTimeZoneHold systemZone;
    logLine("MSPEXMLExporter: Exporting Tarnwick document bundle to MPP file...");
    logLine("Input:  '{}'", bundleUrl.path());
    logLine("Output: '{}'", output.path());
    begin(ExportPhase::Loading);
    MSPESourceDocuments documents = loadSourceDocuments(bundleUrl, _threads);

    logLine("Mapping Tarnwick document ...");
    begin(ExportPhase::Mapping);
    _info[std::string(kInfoMPPTemplateUrl)] = templateUrl.absoluteString();
    // The source documents go into the mapping and are freed with it: writing needs the project only.
    const MappedProject mapped = mapSourceDocuments(std::move(documents), templateUrl, _mode, _progress, _threads);
    logLine("mspdiXmlDoc: {}", mapped.project ? "<MSPEXMLDocumentAdapter>" : "(null)");
    if (!mapped.project) {
        warnOfFailure(fmt::format("No scenario was mapped. {}", mapped.notMappedReason));
        return false;
    }
    return writeMappedProject(*mapped.project, output, templateUrl);
}

bool MSPEMPPExporter::writeMappedProject(MPPProject& project, NumberedPath& output, const FileURL& templateUrl) {
    logLine("Writing out exported MS Project document ...");
    begin(ExportPhase::Writing);
    logRecords(project);
    MPPWriteFailure failure;
    const MPPModelPass corrections = _mode == ExportMode::Corrected ? MPPModelPass(applyCorrections) : MPPModelPass();
    const bool written =
        MPPProjectWriter::writeProject(&project, output, templateUrl, &failure, corrections, _progress);
    _numberOfTasks = project.tasks.size();
    if (!written)
        warnOfFailure(fmt::format("Writing stopped at '{}': {}", failure.entryPath, failure.reason));
    return written;
}

void MSPEMPPExporter::warnOfFailure(std::string text) {
    logLine("WARNING: {}", text);
    _failureText = std::move(text);
}

void MSPEMPPExporter::begin(ExportPhase phase) const {
    if (_progress != nullptr)
        _progress->advance(phase, 0, 0);
}

} // namespace brackwater
