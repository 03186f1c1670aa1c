#include "MPPXMLDOMFilter/Export/MSPEDocumentLoader.h"

#include "MPPXMLDOMFilter/Streams/RecordValues.h"
#include "Platform/Log/Log.h"
#include "Platform/Threads/SideBySide.h"
#include "Platform/Values/Exception.h"
#include "Platform/Xml/XMLDescription.h"
#include "TWMSPCommon/MSPCExtensions.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iterator>
#include <optional>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace brackwater {

namespace {

constexpr std::string_view kTableOfContentsName = "__TOC.xml";
constexpr std::ptrdiff_t kMostBaselines = 11; // the first and ten more
constexpr std::uintmax_t kWorthAThread =
    std::uintmax_t{128} * 1024; // bytes of all files; a thread costs as much as reading 64 KB

/// `fault` names the file and what is wrong with it.
[[noreturn]] void raiseLoadFailure(std::string fault) {
    throw Exception(kMSPEXMLException, "MSPEXMLExporter.newXmlDocFromUrl: Failed to build XML DOM from source data.",
                    std::move(fault));
}

std::shared_ptr<XMLDocument> newXmlDocFromUrl(const FileURL& url) {
    std::string fault;
    std::shared_ptr<XMLDocument> document = XMLDocument::readFile(url.path(), &fault);
    if (!document)
        raiseLoadFailure(std::move(fault));
    return document;
}

/// The path below the bundle without "." and ".." components; nothing where it names the bundle itself or leaves it.
/// Only the text is looked at: the components are taken back before the file system could follow a link on the way.
std::optional<std::string> pathInsideBundle(std::string_view filename) {
    if (filename.starts_with('/'))
        return std::nullopt;
    std::vector<std::string_view> components;
    while (!filename.empty()) {
        const std::size_t slash = filename.find('/');
        const std::string_view component = filename.substr(0, slash);
        filename.remove_prefix(slash == std::string_view::npos ? filename.size() : slash + 1);
        if (component.empty() || component == ".")
            continue;
        if (component != "..") {
            components.push_back(component);
        } else if (components.empty()) {
            return std::nullopt;
        } else {
            components.pop_back();
        }
    }
    if (components.empty())
        return std::nullopt;
    return fmt::format("{}", fmt::join(components, "/"));
}

/// The documents of the scenarios that are exported. A file is read once, however many scenarios name it, and the files
/// are read side by side.
class ScenarioFiles {
public:
    ScenarioFiles(const FileURL& bundleUrl, const std::vector<XMLElement>& scenarios, int threads) {
        for (const XMLElement scenario : scenarios)
            if (const auto path = pathInsideBundle(filenameOf(scenario)))
                _files.try_emplace(*path, File{bundleUrl.urlByAppendingPathComponent(*path), _files.size(), nullptr});
        std::vector<std::function<void()>> readings(_files.size());
        for (auto& [path, file] : _files)
            readings[file.reading] = [&file = file] { file.document = newXmlDocFromUrl(file.url); };
        _readings.emplace(std::move(readings), size() < kWorthAThread ? 1 : threads);
    }

    std::shared_ptr<XMLDocument> documentOf(XMLElement scenario) {
        const std::string filename = filenameOf(scenario);
        const auto path = pathInsideBundle(filename);
        if (!path)
            raiseLoadFailure(fmt::format("'{}' does not lie inside the bundle", filename));
        File& file = _files.at(*path);
        if (!std::exchange(file.isTaken, true))
            _readings->take(file.reading);
        return file.document;
    }

private:
    struct File {
        FileURL url;
        std::size_t reading; ///< its number
        std::shared_ptr<XMLDocument> document;
        bool isTaken = false;
    };

    // A file without a size fails when it is read.
    [[nodiscard]] std::uintmax_t size() const {
        std::uintmax_t sum = 0;
        for (const auto& [path, file] : _files) {
            std::error_code fault;
            const std::uintmax_t size = std::filesystem::file_size(file.url.path(), fault);
            sum += fault ? 0 : size;
        }
        return sum;
    }

    static std::string filenameOf(XMLElement scenario) { return scenario.attributeForName("filename").value_or(""); }

    std::unordered_map<std::string, File> _files;
    std::optional<SideBySide> _readings;
};

/// Fails before any of them is loaded.
void checkNumberOfBaselines(const std::vector<XMLElement>& scenarios, const std::optional<std::string>& id) {
    const auto count = std::count_if(scenarios.begin(), scenarios.end(),
                                     [&](XMLElement scenario) { return id && scenario.attributeForName("id") == id; });
    if (count > kMostBaselines)
        throw Exception(kTooManyBaselinesException, "Limit for 10 baselines exceeded",
                        fmt::format("The table of contents names {} baselines.", count));
}

XMLElement projectOf(XMLElement root) {
    const auto project = singleObjectForXQuery(root, XMLQuery("project"));
    if (!project)
        throw Exception(kTWMSPDIExporterException,
                        "MSPEXMLExporter.exportZELBBundle: No 'project' element found in source document.");
    return *project;
}

XMLElement frontWindowOf(XMLElement root) {
    const auto windows = root.objectsForXQuery(XMLQuery("window"));
    if (windows.empty())
        throw Exception(kTWMSPDIExporterException,
                        "MSPEXMLExporter.exportZELBBundle: No window elements found in source document.");
    return windows.front();
}

} // namespace

MSPESourceDocuments loadSourceDocuments(const FileURL& bundleUrl, int threads) {
    MSPESourceDocuments documents;
    documents.tableOfContents = newXmlDocFromUrl(bundleUrl.urlByAppendingPathComponent(kTableOfContentsName));
    const XMLElement root = documents.tableOfContents->rootElement();
    const XMLElement project = projectOf(root);
    const XMLElement window = frontWindowOf(root);
    documents.editingScenarioId = stringValueForXQuery(window, XMLQuery("editing-scenario"));
    const auto comparisonId = stringValueForXQuery(window, XMLQuery("comparison-scenario"));

    const auto scenarios = project.objectsForXQuery(XMLQuery("scenario"));
    if (comparisonId != documents.editingScenarioId)
        checkNumberOfBaselines(scenarios, comparisonId);
    const auto isMain = [&](const auto& id) { return id && id == documents.editingScenarioId; };
    const auto isExported = [&](const auto& id) { return isMain(id) || (id && id == comparisonId); };
    std::vector<XMLElement> exported;
    std::ranges::copy_if(scenarios, std::back_inserter(exported),
                         [&](XMLElement scenario) { return isExported(scenario.attributeForName("id")); });
    ScenarioFiles files(bundleUrl, exported, threads);
    for (const XMLElement scenario : scenarios) {
        const auto id = scenario.attributeForName("id");
        if (isMain(id)) {
            documents.mainDocument = files.documentOf(scenario);
        } else if (isExported(id)) {
            documents.baselines.push_back(files.documentOf(scenario));
        } else {
            logLine("WARINING: Baseline \"{}\" will not be exported because it is not the baseline visible in the "
                    "front Tarnwick document window.",
                    descriptionOfAttribute(scenario, "name").value_or("(null)"));
        }
    }
    return documents;
}

} // namespace brackwater
