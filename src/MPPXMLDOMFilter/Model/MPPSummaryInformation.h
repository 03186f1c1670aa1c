#pragma once

#include <optional>
#include <string>

namespace brackwater {

/// How the texts of the summary streams are held.
enum class MPPSummaryTexts {
    Ascii,    ///< code page 1251 is named, but only ASCII texts are held; others are empty
    Standard, ///< code page 1252; UTF-16 for a text with other characters
};

/// What the two summary streams tell of the document.
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
