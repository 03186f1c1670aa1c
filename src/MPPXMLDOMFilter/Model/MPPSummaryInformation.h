#pragma once

#include <optional>
#include <string>

namespace brackwater {

/// How the summary streams store texts.
enum class MPPSummaryTexts {
    Ascii,    ///< names code page 1251 but stores only ASCII texts; others become empty
    Standard, ///< code page 1252; UTF-16 for texts with other characters
};

/// The contents of the two summary streams.
struct MPPSummaryInformation {
    MPPSummaryTexts texts = MPPSummaryTexts::Ascii;
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
