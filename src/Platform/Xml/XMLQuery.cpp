#include "Platform/Xml/XMLQuery.h"

#include "Platform/Files/PathText.h"

#include <fmt/format.h>

namespace brackwater {

Error notPortedXQueryError(std::string_view sourcePath, int line, std::string_view query) {
    constexpr int notPorted = 100;
    return {kGeneralErrorDomain, notPorted,
            fmt::format("NOT PORTED XQUERY ({} [{}]): {}", lastPathComponent(sourcePath), line, query)};
}

} // namespace brackwater
