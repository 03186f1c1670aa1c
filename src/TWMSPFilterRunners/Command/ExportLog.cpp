#include "TWMSPFilterRunners/Command/ExportLog.h"

#include <algorithm>
#include <array>

namespace brackwater {

namespace {

constexpr std::size_t kMostTexts = 1000;
constexpr std::string_view kOtherWarnings = "(other warnings)";

// Messages use both spellings.
constexpr std::array<std::string_view, 2> kWarningMarks = {"WARNING: ", "WARINING: "};
constexpr std::string_view kStopMark = "Exception: ";

/// The mark at the start of the text, or an empty one.
std::string_view markOf(std::string_view text) {
    const auto mark =
        std::ranges::find_if(kWarningMarks, [text](std::string_view known) { return text.starts_with(known); });
    return mark != kWarningMarks.end() ? *mark : std::string_view();
}

} // namespace

bool ExportLog::wants(std::string_view beginning) const {
    return _isRead || !markOf(beginning).empty() || beginning.starts_with(kStopMark);
}

void ExportLog::receive(std::string_view text) {
    if (const std::string_view mark = markOf(text); !mark.empty())
        count(text.substr(mark.size()));
    else if (text.starts_with(kStopMark))
        _fault = withoutWorkFolder(text.substr(std::min(text.find('\n'), text.size() - 1) + 1));
    if (_isRead)
        passOn(withoutWorkFolder(text));
}

void ExportLog::count(std::string_view warning) {
    std::string text = withoutWorkFolder(warning);
    if (_warnings.size() >= kMostTexts && !_placeOfWarning.contains(text))
        text = kOtherWarnings;
    const auto [place, isNew] = _placeOfWarning.try_emplace(text, _warnings.size());
    if (isNew)
        _warnings.push_back({std::move(text), 0});
    ++_warnings[place->second].count;
}

std::string ExportLog::withoutWorkFolder(std::string_view text) const {
    std::string shown(text);
    const std::string inPath = _workFolder + "/";
    for (std::size_t at = shown.find(inPath); at != std::string::npos; at = shown.find(inPath, at))
        shown.erase(at, inPath.size());
    return shown;
}

} // namespace brackwater
