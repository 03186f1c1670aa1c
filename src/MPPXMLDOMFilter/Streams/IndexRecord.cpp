#include "MPPXMLDOMFilter/Streams/IndexRecord.h"

#include "Platform/Values/Exception.h"

#include <fmt/format.h>

namespace brackwater {

void failMapRow(std::size_t mapRow, std::size_t first, std::size_t count) {
    failAssertion(fmt::format("Row {} of a field map is not one of the {} from {} on.", mapRow, count, first));
}

} // namespace brackwater
