#pragma once

#include "MPPXMLDOMFilter/Container/GObjectPointer.h"

#include <string>

namespace brackwater {

/// Opens the bytes of a template: those of the file, or what a gzip or bzip2 wrapped file holds. Only regular files are
/// opened, so that a pipe or a device cannot hold the export up; what unpacks to more than a template can sensibly be
/// is refused. Null on failure.
[[nodiscard]] GObjectPointer<GsfInput> openTemplateInput(const std::string& path);

} // namespace brackwater
