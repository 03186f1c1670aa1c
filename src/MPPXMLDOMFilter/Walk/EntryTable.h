#pragma once

#include "MPPXMLDOMFilter/Container/MPPWriter.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// The writer that the entry table names for an entry of this name in a folder of this name: a stream writer, or the
/// copier for an entry that none claims.
[[nodiscard]] std::unique_ptr<MPPWriter> newWriterForEntry(std::string_view name, std::string_view parentName,
                                                           std::shared_ptr<MPPFormatWriter> writer,
                                                           std::shared_ptr<MPPFormatReader> reader);

} // namespace brackwater
