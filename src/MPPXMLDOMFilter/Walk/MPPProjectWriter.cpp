#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"

#include "MPPXMLDOMFilter/Container/MPPTemplateFormat.h"
#include "MPPXMLDOMFilter/Streams/MPP12AssignmentWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12RscWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12TaskWriter.h"
#include "MPPXMLDOMFilter/Streams/MPPCalendarWriters.h"
#include "MPPXMLDOMFilter/Walk/TemplateWalk.h"
#include "Platform/Files/PathText.h"
#include "Platform/Log/Log.h"

#include <fmt/core.h>

#include <utility>

namespace brackwater {

namespace {

constexpr int kFormat2007 = 2;

std::string reasonOfRefusal(const FileURL& templateUrl, int formatVersion) {
    if (kindOfPath(templateUrl.path()) == PathKind::Missing)
        return "the template cannot be found any more";
    if (formatVersion == 0)
        return "the template cannot be read, or names no known format";
    return fmt::format(
        "the template is of Microsoft Project {} (format version {}), and one of 2007 (version {}) is needed",
        formatVersion < kFormat2007 ? "2003 or earlier" : "2010 or later", formatVersion, kFormat2007);
}

/// Opens the output, walks the template into it and closes it. A failed walk leaves the partial output.
bool writeEntries(MPPProject* project, const MPPFormatReader& templateRoot, NumberedPath& output,
                  MPPWriteFailure& failure, ExportProgress* progress) {
    MPPFormatWriter root(output);
    if (!root.open()) {
        failure = {output.path(), fmt::format("the output cannot be created: {}", root.failureText())};
        return false;
    }
    const bool written = TemplateWalk(project, failure, progress).writeEntries(templateRoot, root);
    const bool closed = root.close();
    if (written && !closed)
        failure = {output.path(), fmt::format("the output cannot be finished: {}", root.failureText())};
    return written && closed;
}

/// Writes between the two log lines.
bool writeTemplate(MPPProject* project, const FileURL& templateUrl, NumberedPath& output, MPPWriteFailure& failure,
                   ExportProgress* progress) {
    logLine("writeProject started\n");
    MPPFormatReader templateRoot(templateUrl);
    bool written = false;
    if (templateRoot.open())
        written = writeEntries(project, templateRoot, output, failure, progress);
    else
        failure.reason = "the template cannot be opened";
    logLine("writeProject finished\n");
    return written;
}

} // namespace

bool MPPProjectWriter::writeProject(MPPProject* project, const FileURL& outputUrl, const FileURL& templateUrl,
                                    MPPWriteFailure* failure, const MPPModelPass& beforeWriting,
                                    ExportProgress* progress) {
    NumberedPath output(outputUrl.path());
    return writeProject(project, output, templateUrl, failure, beforeWriting, progress);
}

bool MPPProjectWriter::writeProject(MPPProject* project, NumberedPath& output, const FileURL& templateUrl,
                                    MPPWriteFailure* failure, const MPPModelPass& beforeWriting,
                                    ExportProgress* progress) {
    MPPWriteFailure found;
    bool written = false;
    if (const int version = getFormatVersionOfTemplateAtUrl(templateUrl); version != kFormat2007) {
        found.reason = reasonOfRefusal(templateUrl, version);
    } else {
        if (project != nullptr) {
            preprocessProject(*project);
            if (beforeWriting)
                beforeWriting(*project);
        }
        written = writeTemplate(project, templateUrl, output, found, progress);
    }
    if (!written && failure != nullptr) {
        if (found.entryPath.empty())
            found.entryPath = templateUrl.path();
        *failure = std::move(found);
    }
    return written;
}

int MPPProjectWriter::getFormatVersionOfTemplateAtUrl(const FileURL& templateUrl) {
    return formatVersionOfTemplateAtUrl(templateUrl);
}

void MPPProjectWriter::preprocessProject(MPPProject& project) {
    MPP12TaskWriter::preprocessProject(project);
    MPP12RscWriter::preprocessProject(project);
    MPP12AssignmentWriter::preprocessProject(project);
    MPP12CalendarWriter::preprocessProject(project);
}

std::unique_ptr<MPPWriter> MPPProjectWriter::createWriterForRootSonName(const std::string& name,
                                                                        MPPFormatWriter& parent,
                                                                        std::shared_ptr<MPPFormatReader> reader) {
    std::shared_ptr<MPPFormatWriter> child = parent.createChildWithName(name, reader->isDirectory());
    if (!child)
        return nullptr;
    return newWriterForEntry(name, parent.getName(), std::move(child), std::move(reader));
}

} // namespace brackwater
