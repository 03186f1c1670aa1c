#pragma once

#include "Platform/Files/FileURL.h"

namespace brackwater {

/// The format version that a template's "\x01CompObj" names: 0 unknown or unreadable (also the 4.0 format), 1 the 2003
/// family, 2 the 2007 family, 3 the 2010 family. `MPPProjectWriter::getFormatVersionOfTemplateAtUrl` returns it.
[[nodiscard]] int formatVersionOfTemplateAtUrl(const FileURL& url);

} // namespace brackwater
