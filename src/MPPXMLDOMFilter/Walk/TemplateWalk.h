#pragma once

#include "MPPXMLDOMFilter/Container/MPPWriter.h"
#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"
#include "Platform/Values/ExportProgress.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// The writer that the entry table selects for an entry name in a folder name: a stream writer, or the copier if no
/// rule matches.
[[nodiscard]] std::unique_ptr<MPPWriter> newWriterForEntry(std::string_view name, std::string_view parentName,
                                                           std::shared_ptr<MPPFormatWriter> writer,
                                                           std::shared_ptr<MPPFormatReader> reader);

/// One pass over the two outer levels of a template. Each entry is finished and closed before the next one begins; the
/// first failure ends the walk.
class TemplateWalk {
public:
    /// `project` is passed to the writers. `failure` is filled in if the walk fails. `progress` (may be null) is
    /// notified of each entry.
    TemplateWalk(MPPProject* project, MPPWriteFailure& failure, ExportProgress* progress = nullptr)
        : _project(project), _failure(failure), _progress(progress) {}

    /// Writes all entries of the template to the root of the output; the caller closes the root.
    [[nodiscard]] bool writeEntries(const MPPFormatReader& templateRoot, MPPFormatWriter& outputRoot);

private:
    using Reader = std::shared_ptr<MPPFormatReader>;

    bool writeStorage(const MPPFormatReader& reader, MPPFormatWriter& parent);
    bool writeChild(const std::string& storageName, MPPFormatWriter& storage, Reader child);
    /// Whether the entry contains counts of its storage's other entries and so must be written after them.
    [[nodiscard]] bool tellsOfOthers(const MPPFormatReader& child) const;
    bool writeEntry(const std::string& path, MPPFormatWriter& parent, Reader reader);
    bool fail(std::string path, std::string reason);
    void countEntries(const MPPFormatReader& storage);

    MPPProject* _project;
    MPPWriteFailure& _failure;
    ExportProgress* _progress;
    std::size_t _entries = 0; ///< known so far
    std::size_t _writtenEntries = 0;
};

} // namespace brackwater
