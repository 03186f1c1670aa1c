#pragma once

#include "MPPXMLDOMFilter/Container/MPPFormatReader.h"
#include "support/MemoryWriter.h"

#include <map>
#include <memory>
#include <string>

namespace brackwater::test {

/// A compound file in memory with these streams ("Props", "TBkndCons/VarMeta"), as an open reader of its root.
[[nodiscard]] std::shared_ptr<MPPFormatReader> memoryTemplate(const std::map<std::string, Bytes>& streams);

/// A reader of one stream that holds these bytes.
[[nodiscard]] std::shared_ptr<MPPFormatReader> memoryStream(const Bytes& bytes);

} // namespace brackwater::test
