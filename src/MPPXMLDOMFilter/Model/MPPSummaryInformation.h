#pragma once

#include <optional>
#include <string>

namespace brackwater {

/// What the two summary streams tell of the document.
struct MPPSummaryInformation {
    std::optional<std::string> title;
    std::optional<std::string> author;
    std::optional<std::string> keywords;
    std::optional<std::string> comments;
    std::optional<std::string> creator;
    std::optional<std::string> category;
    std::optional<std::string> manager;
    std::optional<std::string> company;
};

} // namespace brackwater
