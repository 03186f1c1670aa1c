#pragma once

#include "MPPXMLDOMFilter/Container/GObjectPointer.h"

#include <string>

namespace brackwater {

/// Opens the bytes of a template: those of the file, or the contents of a gzip or bzip2 file. Opens only regular files,
/// so that a pipe or a device cannot block the export; rejects contents too large for a template. Null on failure.
[[nodiscard]] GObjectPointer<GsfInput> openTemplateInput(const std::string& path);

} // namespace brackwater
