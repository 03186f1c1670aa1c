#include "TWMSPFilterRunners/Brackwater/BrackwaterRunner.h"

#include "Platform/Files/PathText.h"
#include "Platform/Files/Preferences.h"
#include "Platform/Files/TextFile.h"
#include "Platform/Log/Log.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/Processors.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace brackwater {

namespace {

// Positions in the command line, in which the program's name is 0.
constexpr std::size_t kTemplateSwitch = 1;
constexpr std::size_t kTemplatePath = 2;
constexpr std::size_t kInput = 3;
constexpr std::size_t kListPath = 4;
constexpr std::size_t kOutputOfSingleExport = 4;
constexpr std::size_t kOutputOfList = 5;
constexpr std::size_t kFewestArguments = 4;

bool namesBundle(std::string_view line) { return !line.empty() && !line.starts_with("::"); }

bool hasExtension(std::string_view path, std::string_view lowercaseExtension) {
    return lowercaseString(pathExtension(path)) == lowercaseExtension;
}

std::string descriptionOfInfo(const MSPEExportInfo& info) {
    std::string text = "{";
    for (const auto& [key, value] : info)
        text += fmt::format(" {} = \"{}\";", key, value);
    return text + " }";
}

void removeWhatStandsAt(const std::string& path) {
    if (kindOfPath(path) == PathKind::Missing)
        return;
    // No need to check: after a failed removal the export uses the next free name.
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

} // namespace

int BrackwaterRunner::run(std::span<const std::string> arguments) {
    _arguments = arguments;
    try {
        exportAll();
    } catch (const Exception& exception) {
        logLine("Exception: {}\n{}", exception.name(), exception.reason());
    } catch (const std::exception& exception) {
        logLine("Exception: {}\n{}", kGenericException, exception.what());
    }
    logLine("Final clean up.");
    _inputLines.clear();
    return 0;
}

void BrackwaterRunner::exportAll() {
    logLine("Brackwater Runner");
    const Preferences preferences(kPreferencesDomain);
    _includeInputExtension = preferences.boolForKey("IncludeInputExtension");
    _overwriteFilterTarget = preferences.boolForKey("OverwriteFilterTarget");
    checkArguments();
    readTemplateUrl();
    readInputLines();
    for (const std::string_view line : _inputLines)
        exportLine(std::string(line));
}

void BrackwaterRunner::checkArguments() const {
    if (_arguments.size() < kFewestArguments || _arguments[kTemplateSwitch] != "--template-path")
        throw Exception(kCommandLineArgumentException, fmt::format("Too few arguments. {}", usage()));
}

void BrackwaterRunner::readTemplateUrl() {
    const std::string& argument = _arguments[kTemplatePath];
    if (!hasExtension(argument, "mpp"))
        throw Exception(kCommandLineArgumentException, fmt::format("Template is not a valid MPP file: '{}'", argument));
    const std::string path = stringByStandardizingPath(argument);
    if (kindOfPath(path) != PathKind::File)
        throw Exception(kFileNotFoundException, fmt::format("MPP template file not found: {}", path));
    _templateUrl = FileURL::fileURLWithPath(path, true);
    logLine("MPP Template URL: '{}'", _templateUrl->absoluteString());
}

void BrackwaterRunner::readInputLines() {
    const std::string& argument = _arguments[kInput];
    if (argument == "--input-list") {
        readInputList();
        _outputArgumentIndex = kOutputOfList;
    } else {
        logLine("### Export single file: \"{}\"", argument);
        if (namesBundle(argument))
            _inputLines = {std::string_view(argument)};
        _outputArgumentIndex = kOutputOfSingleExport;
    }
}

void BrackwaterRunner::readInputList() {
    logLine("### Import files from the list:");
    if (_arguments.size() <= kListPath)
        throw Exception(kCommandLineArgumentException, "No input list found in command line.");
    const std::string path = stringByStandardizingPath(_arguments[kListPath]);
    if (kindOfPath(path) != PathKind::File)
        throw Exception(kFileNotFoundException, fmt::format("Input list not found or it is a directory: {}", path));
    auto text = stringWithContentsOfFile(path);
    if (!text)
        throw Exception(kFileNotFoundException, fmt::format("Input list file could not be read or empty: {}", path));
    _inputList = std::move(*text);
    _inputLines = componentsSeparatedByNewlines(_inputList, namesBundle);
    for (const std::string_view line : _inputLines)
        logLine("    \"{}\"", line);
}

void BrackwaterRunner::exportLine(const std::string& line) {
    if (!hasExtension(line, "zelb"))
        throw Exception(kCommandLineArgumentException,
                        fmt::format("Input file is not a valid ZELB doc folder: '{}'", line));
    const std::string bundlePath = stringByStandardizingPath(line);
    const PathKind kind = kindOfPath(bundlePath);
    if (kind == PathKind::Missing)
        throw Exception(kFileNotFoundException, fmt::format("Input file not found: {}", bundlePath));
    if (kind != PathKind::Directory)
        throw Exception(kFileNotFoundException, fmt::format("Input file is not a bundle (folder): {}", bundlePath));

    const FileURL inputUrl = FileURL::fileURLWithPath(bundlePath, true);
    logLine("### Export from URL: '{}'", inputUrl.absoluteString());
    const std::string outputPath = outputPathForBundle(bundlePath);
    logLine("outputFilePath='{}'", outputPath);
    if (_overwriteFilterTarget)
        removeWhatStandsAt(outputPath);
    const FileURL outputUrl = FileURL::fileURLWithPath(outputPath, false);
    logLine("### Write to URL: '{}'", outputUrl.absoluteString());

    const MSPEExportInfo info = {
        {std::string(kInfoMSPDIProjectName), stringByDeletingPathExtension(lastPathComponent(bundlePath))}};
    logLine("info: {}", descriptionOfInfo(info));
    const bool succeeded = exportBundle(inputUrl, outputUrl, *_templateUrl, info);
    logLine("### Exporter {}.", succeeded ? "SUCCEEDED" : "FAILED");
}

bool BrackwaterRunner::exportBundle(const FileURL& bundleUrl, const FileURL& mppUrl, const FileURL& templateUrl,
                                    const MSPEExportInfo& info) {
    MSPEMPPExporter exporter(info);
    exporter.setThreads(usableProcessors());
    return exporter.exportZelbBundle(bundleUrl, mppUrl, templateUrl);
}

std::string BrackwaterRunner::outputPathForBundle(const std::string& bundlePath) const {
    std::string fileName = stringByDeletingPathExtension(lastPathComponent(bundlePath));
    if (_includeInputExtension)
        fileName = stringByAppendingPathExtension(fileName, "zelb");
    fileName = stringByAppendingPathExtension(fileName, "mpp");
    if (_arguments.size() <= _outputArgumentIndex)
        return stringByAppendingPathComponent(stringByDeletingLastPathComponent(bundlePath), fileName);

    std::string path = stringByStandardizingPath(_arguments[_outputArgumentIndex]);
    if (kindOfPath(path) == PathKind::Directory)
        return stringByAppendingPathComponent(path, fileName);
    // Case matters here, unlike in the checks of template and bundle.
    if (pathExtension(path) != "mpp")
        throw Exception(kCommandLineArgumentException, fmt::format("Output file extension is not 'mpp': {}.", path));
    return path;
}

std::string BrackwaterRunner::usage() const {
    const std::string program = _arguments.empty() ? std::string() : lastPathComponent(_arguments[0]);
    return fmt::format("Usage:\n"
                       "  {0} --template-path <MPP_template_path> <input_ZELB_bundle_path> [<output_path>]\n"
                       "  {0} --template-path <MPP_template_path> --input-list <input_list_path> [<output_path>]",
                       program);
}

} // namespace brackwater
