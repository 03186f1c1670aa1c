#include "MPPXMLDOMFilter/Streams/RowBuilder.h"

#include "Platform/Values/Exception.h"

#include <fmt/format.h>

namespace brackwater {

void failRowOffset(std::size_t expected, std::size_t reached, std::size_t size) {
    failAssertion(fmt::format("Fields of a row of {} bytes reach to offset {}, not {}.", size, reached, expected));
}

} // namespace brackwater
