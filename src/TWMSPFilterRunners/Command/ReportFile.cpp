#include "TWMSPFilterRunners/Command/ReportFile.h"

#include "Platform/Files/PathText.h"
#include "TWMSPFilterRunners/Command/StoppableWrite.h"
#include "TWMSPFilterRunners/Command/UsageError.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace brackwater {

namespace {

constexpr std::int64_t kVersion = 1;

std::string outputPathOf(const ExportJob& job, const ExportResult& result) {
    return stringByAppendingPathComponent(job.outputFolder, result.outputName);
}

} // namespace

ReportFile::ReportFile(const std::string& path, const std::string& templatePath, const StopRequests& requests)
    : _path(path), _requests(requests), _json([this](std::string_view text) { write(text); }) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
        _file = FileDescriptor(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    } else {
        _temporaryPath = path + ".XXXXXX";
        _file = FileDescriptor(mkostemp(_temporaryPath.data(), O_CLOEXEC));
    }
    if (!_file) {
        _temporaryPath.clear();
        throw UsageError(
            fmt::format("the report '{}' cannot be written: {}", path, std::generic_category().message(errno)));
    }
    _json.beginObject();
    _json.key("version");
    _json.number(kVersion);
    _json.key("template");
    _json.text(templatePath);
    _json.key("bundles");
    _json.beginArray();
}

ReportFile::~ReportFile() {
    if (!_temporaryPath.empty())
        unlink(_temporaryPath.c_str());
}

void ReportFile::beginBundle(const ExportJob& job, std::string_view status) {
    _json.beginObject();
    _json.key("bundle");
    _json.text(job.bundle);
    _json.key("status");
    _json.text(status);
}

void ReportFile::add(const ExportJob& job, const ExportResult& result) {
    beginBundle(job, result.exported ? "exported" : "failed");
    if (result.exported) {
        _json.key("output");
        _json.text(outputPathOf(job, result));
        _json.key("tasks");
        _json.number(static_cast<std::int64_t>(result.tasks));
    } else {
        _json.key("reason");
        _json.text(result.fault);
    }
    _json.key("warnings");
    _json.beginArray();
    for (const WarningCount& warning : result.warnings) {
        _json.beginObject();
        _json.key("text");
        _json.text(warning.text);
        _json.key("count");
        _json.number(static_cast<std::int64_t>(warning.count));
        _json.endObject();
    }
    _json.endArray();
    if (!result.comparisonFault.empty()) {
        _json.key("comparisonFault");
        _json.text(result.comparisonFault);
    } else if (result.exported) {
        _json.key("losses");
        lossreport::writeLosses(_json, result.losses);
    }
    _json.endObject();
}

void ReportFile::addInterrupted(const ExportJob& job) {
    beginBundle(job, "interrupted");
    _json.endObject();
}

bool ReportFile::finish(int status) {
    _json.endArray();
    _json.key("status");
    _json.number(std::int64_t{status});
    _json.endObject();
    _json.finish();
    if (_temporaryPath.empty())
        return _file.close() && _isWhole;
    // A temporary file is private to its owner; the report gets the default mode of new files.
    const mode_t mask = umask(0);
    umask(mask);
    _isWhole = _isWhole && fchmod(_file.get(), 0666 & ~mask) == 0 && fsync(_file.get()) == 0;
    _isWhole = _file.close() && _isWhole && rename(_temporaryPath.c_str(), _path.c_str()) == 0;
    if (_isWhole)
        _temporaryPath.clear();
    return _isWhole;
}

void ReportFile::write(std::string_view text) {
    _isWhole = _isWhole && writeUnlessStopped(_file.get(), text, &_requests);
}

} // namespace brackwater
