#include "TWMSPFilterRunners/Command/ExportPlan.h"

#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"
#include "Platform/Files/PathText.h"
#include "TWMSPFilterRunners/Command/BundleList.h"
#include "TWMSPFilterRunners/Command/OutputNames.h"
#include "TWMSPFilterRunners/Command/UnreadLog.h"
#include "TWMSPFilterRunners/Command/UsageError.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace brackwater {

namespace {

namespace fs = std::filesystem;

constexpr const char* kTableOfContents = "__TOC.xml";
constexpr const char* kPackagesTemplate = "/usr/share/brackwater/Template.mpp";
constexpr int kFormat2007 = 2;
constexpr const char* kStandardStream = "-";
constexpr const char* kNotToStandardOutput = "means standard output, which is for messages; name a file";

std::string systemsWords() { return std::generic_category().message(errno); }

std::string withoutTrailingSlashes(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string absolutePath(const std::string& path) {
    std::error_code fault;
    return withoutTrailingSlashes(fs::absolute(path, fault).native());
}

bool hasExtension(const std::string& path, std::string_view lowercaseExtension) {
    return lowercaseString(pathExtension(path)) == lowercaseExtension;
}

/// The bundle that contains a folder; empty outside bundles.
std::string bundleAround(const std::string& folder) {
    std::error_code fault;
    for (fs::path place = fs::weakly_canonical(folder, fault); place.has_relative_path(); place = place.parent_path())
        if (fs::exists(place / kTableOfContents, fault))
            return place.native();
    return {};
}

/// Why the folder is not writable; empty if it is.
std::string faultOfFolder(const std::string& folder) {
    if (kindOfPath(folder) != PathKind::Directory)
        return fmt::format("the folder '{}' does not exist", folder);
    if (const std::string bundle = bundleAround(folder); !bundle.empty())
        return fmt::format("'{}' is inside the bundle '{}', which must not change", folder, bundle);
    if (access(folder.c_str(), W_OK | X_OK) != 0)
        return fmt::format("cannot write to the folder '{}': {}", folder, systemsWords());
    return {};
}

std::string faultOfBundle(const std::string& path) {
    const bool isNamedLikeOne = hasExtension(path, "zelb");
    switch (kindOfPath(path)) {
    case PathKind::Missing:
        return errno == ENOENT ? "no such bundle" : systemsWords();
    case PathKind::File:
        return isNamedLikeOne ? "it is a file, and a bundle is a folder: unpack it" : "it is a file, not a bundle";
    case PathKind::Directory:
        break;
    }
    const std::string contents = path + "/" + kTableOfContents;
    const bool hasContents = access(contents.c_str(), R_OK) == 0;
    if (!isNamedLikeOne)
        return hasContents ? "a bundle's name ends in .zelb"
                           : "it is not a bundle; name the bundles in it: FOLDER/*.zelb";
    if (!hasContents)
        return errno == ENOENT ? "it has no __TOC.xml: copy the whole bundle"
                               : fmt::format("its __TOC.xml cannot be read: {}", systemsWords());
    return {};
}

/// The template installed with the program, or created by the build. Without /proc, the one of the package.
std::string defaultTemplatePath() {
    std::error_code fault;
    const fs::path prefix = fs::read_symlink("/proc/self/exe", fault).parent_path().parent_path();
    for (const fs::path& place :
         {prefix / "share/brackwater/Template.mpp", prefix / "share/Template.mpp", fs::path(kPackagesTemplate)})
        if (place.is_absolute() && fs::exists(place, fault))
            return place.native();
    throw UsageError("the installed template is missing; name one with -t");
}

std::string checkedTemplate(const std::optional<std::string>& named) {
    std::string path = named ? absolutePath(*named) : defaultTemplatePath();
    const auto refuse = [&](std::string_view fault) {
        throw UsageError(fmt::format("the template '{}' {}", named.value_or(path), fault));
    };
    if (kindOfPath(path) == PathKind::Missing)
        refuse("does not exist");
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        refuse("is no file");
    if (!hasExtension(path, "mpp"))
        refuse("must be an .mpp file");
    if (access(path.c_str(), R_OK) != 0)
        refuse("cannot be read: " + systemsWords());
    const CompoundFileLibrary library;
    const UnreadLog log;
    const int version = MPPProjectWriter::getFormatVersionOfTemplateAtUrl(FileURL::fileURLWithPath(path, true));
    if (version == 0)
        refuse("is not a Microsoft Project file of a known format");
    if (version != kFormat2007)
        refuse(version < kFormat2007 ? "has the format of Microsoft Project 2003 or earlier; that of 2007 is needed"
                                     : "has the format of Microsoft Project 2010 or later; that of 2007 is needed");
    return path;
}

/// The outputs' destination, as the user named it.
struct Destination {
    std::optional<std::string> folder; ///< nothing: each beside its bundle
    std::optional<std::string> file;   ///< for a single bundle
};

struct OutputFolder {
    std::string path;  ///< without links
    std::string fault; ///< empty if outputs can be written
};

class Planner {
public:
    Planner(const CommandOptions& options, std::string templatePath)
        : _options(options), _templatePath(std::move(templatePath)), _names(options.replacesOutputs) {}

    std::vector<ExportJob> planned(const std::vector<std::string>& bundles) {
        _destination = destination(bundles.size());
        std::vector<ExportJob> jobs;
        jobs.reserve(bundles.size());
        for (const std::string& bundle : bundles)
            jobs.push_back(job(bundle));
        return jobs;
    }

private:
    [[nodiscard]] Destination destination(std::size_t bundles) const {
        if (!_options.output)
            return {};
        const std::string& output = *_options.output;
        if (output == kStandardStream)
            throw UsageError(fmt::format("the output '{}' {}", output, kNotToStandardOutput));
        const bool exists = kindOfPath(output) == PathKind::Directory;
        const bool isFolder = exists || output.ends_with('/') || pathExtension(output).empty();
        if (!isFolder && !hasExtension(output, "mpp"))
            throw UsageError(fmt::format("the output '{}' must end in .mpp, or in / for a folder", output));
        if (!isFolder && bundles > 1)
            throw UsageError(
                fmt::format("the output '{}' is one file, but there are {} bundles; name a folder", output, bundles));
        const std::string folder =
            isFolder && exists ? output : stringByDeletingLastPathComponent(absolutePath(output));
        if (const std::string fault = faultOfFolder(folder); !fault.empty())
            throw UsageError(fault);
        if (!isFolder)
            return {.folder = std::nullopt, .file = output};
        if (!exists && mkdir(output.c_str(), 0777) != 0)
            throw UsageError(fmt::format("cannot create the folder '{}': {}", output, systemsWords()));
        return {.folder = output, .file = std::nullopt};
    }

    ExportJob job(const std::string& bundle) {
        ExportJob job;
        job.bundle = bundle;
        job.bundlePath = absolutePath(bundle);
        job.fault = faultOfBundle(job.bundlePath);
        if (!job.fault.empty())
            return job;
        const std::string wanted = wantedOutput(bundle);
        const OutputFolder& folder = outputFolder(stringByDeletingLastPathComponent(absolutePath(wanted)));
        job.outputFolder = folder.path;
        job.fault = folder.fault.empty() ? faultOfOutput(wanted) : folder.fault;
        if (!job.fault.empty())
            return job;
        const std::string taken = _names.take(stringByAppendingPathComponent(folder.path, lastPathComponent(wanted)));
        job.output =
            stringByAppendingPathComponent(stringByDeletingLastPathComponent(wanted), lastPathComponent(taken));
        return job;
    }

    [[nodiscard]] std::string wantedOutput(const std::string& bundle) const {
        if (_destination.file)
            return *_destination.file;
        const std::string name =
            stringByAppendingPathExtension(stringByDeletingPathExtension(lastPathComponent(bundle)), "mpp");
        const std::string folder = _destination.folder.value_or(stringByDeletingLastPathComponent(bundle));
        return folder.empty() ? name : stringByAppendingPathComponent(folder, name);
    }

    const OutputFolder& outputFolder(const std::string& path) {
        const auto found = _folders.find(path);
        if (found != _folders.end())
            return found->second;
        std::error_code fault;
        return _folders.emplace(path, OutputFolder{fs::weakly_canonical(path, fault).native(), faultOfFolder(path)})
            .first->second;
    }

    /// The files that must not be replaced.
    [[nodiscard]] std::string faultOfOutput(const std::string& output) const {
        if (!_options.replacesOutputs)
            return {};
        if (kindOfPath(output) == PathKind::Directory)
            return fmt::format("the output '{}' exists as a folder", output);
        std::error_code fault;
        if (fs::equivalent(output, _templatePath, fault))
            return fmt::format("the output '{}' is the template", output);
        return {};
    }

    const CommandOptions& _options;
    std::string _templatePath;
    OutputNames _names;
    Destination _destination;
    std::map<std::string, OutputFolder> _folders; ///< by the path that leads to it
};

/// Whether two names refer to the same file; devices and pipes may be named twice.
bool isSameFile(const std::string& one, const std::string& other) {
    std::error_code fault;
    const auto place = [&fault](const std::string& path) { return fs::weakly_canonical(absolutePath(path), fault); };
    return (fs::equivalent(one, other, fault) || place(one) == place(other)) && !fs::is_other(one, fault);
}

/// The log and the report overwrite their files, so these must not be inputs or outputs of the exports.
void checkOwnFile(const std::optional<std::string>& path, std::string_view role, const CommandOptions& options,
                  const std::string& templatePath) {
    if (!path)
        return;
    const auto refuse = [&](std::string_view fault) {
        throw UsageError(fmt::format("the {} '{}' {}", role, *path, fault));
    };
    if (*path == kStandardStream)
        refuse(kNotToStandardOutput);
    const std::string folder = stringByDeletingLastPathComponent(absolutePath(*path));
    if (const std::string bundle = bundleAround(folder); !bundle.empty())
        refuse(fmt::format("is inside the bundle '{}', which must not change", bundle));
    if (hasExtension(*path, "mpp") || hasExtension(*path, "zelb"))
        refuse("has the name of an output or a bundle");
    if (isSameFile(*path, templatePath))
        refuse("is the template");
    if (options.inputList && isSameFile(*path, *options.inputList))
        refuse("is the list of the bundles");
}

} // namespace

ExportPlan planExports(const CommandOptions& options) {
    ExportPlan plan;
    plan.templatePath = checkedTemplate(options.templatePath);
    checkOwnFile(options.log, "log", options, plan.templatePath);
    checkOwnFile(options.report, "report", options, plan.templatePath);
    if (options.log && options.report && isSameFile(*options.log, *options.report))
        throw UsageError(fmt::format("'{}' cannot be both the log and the report", *options.log));
    std::vector<std::string> bundles = options.bundles;
    if (options.inputList) {
        std::vector<std::string> listed = readBundleList(*options.inputList);
        if (listed.empty() && bundles.empty())
            throw UsageError(fmt::format("the list '{}' names no bundle", *options.inputList));
        bundles.insert(bundles.end(), std::make_move_iterator(listed.begin()), std::make_move_iterator(listed.end()));
    }
    plan.jobs = Planner(options, plan.templatePath).planned(bundles);
    return plan;
}

} // namespace brackwater
