#pragma once

#include "MPPXMLDOMFilter/Export/MSPEMPPExporter.h"
#include "Platform/Files/FileURL.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

inline constexpr std::string_view kCommandLineArgumentException = "CommandLineArgumentException";
inline constexpr std::string_view kFileNotFoundException = "FileNotFoundException";
inline constexpr std::string_view kPreferencesDomain = "lanthorn.Tarnwick2.MSPExportMPP";

/// One run of the tool: reads preferences and arguments, and exports one bundle or a list of bundles. Only the log
/// reports the outcome.
///
///   Brackwater --template-path TEMPLATE BUNDLE [OUTPUT]
///   Brackwater --template-path TEMPLATE --input-list LIST [OUTPUT]
class BrackwaterRunner {
public:
    BrackwaterRunner() = default;
    virtual ~BrackwaterRunner() = default;
    BrackwaterRunner(const BrackwaterRunner&) = delete;
    BrackwaterRunner& operator=(const BrackwaterRunner&) = delete;

    /// `arguments` begin with the program's name. Catches all failures; returns the exit status, always 0.
    int run(std::span<const std::string> arguments);

protected:
    /// Exports one bundle; the result is logged.
    virtual bool exportBundle(const FileURL& bundleUrl, const FileURL& mppUrl, const FileURL& templateUrl,
                              const MSPEExportInfo& info);

private:
    void exportAll();
    void checkArguments() const;
    void readTemplateUrl();
    void readInputLines();
    void readInputList();
    void exportLine(const std::string& line);
    [[nodiscard]] std::string outputPathForBundle(const std::string& bundlePath) const;
    [[nodiscard]] std::string usage() const;

    std::span<const std::string> _arguments;
    bool _includeInputExtension = false;
    bool _overwriteFilterTarget = false;
    std::optional<FileURL> _templateUrl;
    std::string _inputList;
    std::vector<std::string_view> _inputLines; ///< that name bundles
    std::size_t _outputArgumentIndex = 0;
};

} // namespace brackwater
