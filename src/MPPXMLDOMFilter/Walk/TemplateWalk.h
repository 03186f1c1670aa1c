#pragma once

#include "MPPXMLDOMFilter/Container/MPPWriter.h"
#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"
#include "Platform/Values/ExportProgress.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// The writer that the entry table names for an entry of this name in a folder of this name: a stream writer, or the
/// copier for an entry that none claims.
[[nodiscard]] std::unique_ptr<MPPWriter> newWriterForEntry(std::string_view name, std::string_view parentName,
                                                           std::shared_ptr<MPPFormatWriter> writer,
                                                           std::shared_ptr<MPPFormatReader> reader);

/// One pass over the two outer levels of a template. Each entry is finished and closed before the next one is begun;
/// the first failure ends the walk.
class TemplateWalk {
public:
    /// `project` goes to the writers as it is. `failure` is filled in when the walk fails. `progress` (may be null) is
    /// told of each entry.
    TemplateWalk(MPPProject* project, MPPWriteFailure& failure, ExportProgress* progress = nullptr)
        : _project(project), _failure(failure), _progress(progress) {}

    /// Writes all entries of the template into the root of the output; the caller closes the root.
    [[nodiscard]] bool writeEntries(const MPPFormatReader& templateRoot, MPPFormatWriter& outputRoot);

private:
    using Reader = std::shared_ptr<MPPFormatReader>;

    bool writeStorage(const MPPFormatReader& reader, MPPFormatWriter& parent);
    bool writeChild(const std::string& storageName, MPPFormatWriter& storage, Reader child);
    /// Whether the entry tells numbers of other entries of its storage and so must be written behind them.
    [[nodiscard]] bool tellsOfOthers(const MPPFormatReader& child) const;
    bool writeEntry(const std::string& path, MPPFormatWriter& parent, Reader reader);
    bool fail(std::string path, std::string reason);
    void countEntries(const MPPFormatReader& storage);

    MPPProject* _project;
    MPPWriteFailure& _failure;
    ExportProgress* _progress;
    std::size_t _entries = 0; ///< that are known of
    std::size_t _writtenEntries = 0;
};

} // namespace brackwater
