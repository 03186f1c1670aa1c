#include "TWMSPFilterRunners/Command/Summary.h"

#include "Platform/Files/PathText.h"
#include "Platform/Text/VisibleText.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace brackwater {

namespace {

constexpr std::size_t kMostLines = 20;

/// "1 task", "2 tasks".
std::string counted(std::uint64_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::uint64_t countOf(const std::vector<WarningCount>& warnings) {
    std::uint64_t count = 0;
    for (const WarningCount& warning : warnings)
        count += warning.count;
    return count;
}

void appendRest(std::string& text, std::size_t lines) {
    if (lines > kMostLines)
        fmt::format_to(std::back_inserter(text), "  ... and {} more\n", lines - kMostLines);
}

} // namespace

std::string lineOfResult(const ExportJob& job, const ExportResult& result) {
    if (!result.exported)
        return visibleText(fmt::format("{}: not exported: {}", job.bundle, result.fault));
    const std::string output =
        stringByAppendingPathComponent(stringByDeletingLastPathComponent(job.output), result.outputName);
    const std::size_t losses = result.losses.losses.size();
    const std::string lost = result.comparisonFault.empty() ? fmt::format("{} loss{}", losses, losses == 1 ? "" : "es")
                                                            : fmt::format("losses unknown: {}", result.comparisonFault);
    return visibleText(fmt::format("{} -> {}: {}, {}, {}", job.bundle, output, counted(result.tasks, "task"),
                                   counted(countOf(result.warnings), "warning"), lost));
}

void Summary::add(const ExportJob& job, const ExportResult& result) {
    ++(result.exported ? _exported : _failed);
    if (!result.exported && _failures.size() < kMostLines)
        _failures.push_back(visibleText(fmt::format("{}: {}", job.bundle, result.fault)));
    for (const WarningCount& warning : result.warnings) {
        const auto [place, isNew] = _placeOfWarning.try_emplace(warning.text, _warnings.size());
        if (isNew)
            _warnings.push_back({warning.text, 0});
        _warnings[place->second].count += warning.count;
    }
    _hasUnacceptedLoss = _hasUnacceptedLoss || !result.comparisonFault.empty();
    addLosses(result.losses);
    _lossesOfTheOnly = _exported + _failed == 1 ? result.losses : lossreport::LossReport();
}

void Summary::addLosses(const lossreport::LossReport& report) {
    for (const lossreport::Loss& loss : report.losses) {
        const auto [place, isNew] = _placeOfLoss.try_emplace(loss.kind, _losses.size());
        if (isNew) {
            _losses.push_back({loss.why, 0});
            _hasUnacceptedLoss =
                _hasUnacceptedLoss || std::ranges::find(_acceptedLosses, loss.kind) == _acceptedLosses.end();
        }
        ++_losses[place->second].count;
    }
}

void Summary::appendWarnings(std::string& text) const {
    if (_warnings.empty())
        return;
    std::vector<WarningCount> sorted = _warnings;
    std::ranges::stable_sort(sorted, std::greater(), &WarningCount::count);
    text += "Warnings:\n";
    for (std::size_t i = 0; i < std::min(sorted.size(), kMostLines); ++i)
        fmt::format_to(std::back_inserter(text), "{:>6} x {}\n", sorted[i].count, visibleText(sorted[i].text));
    appendRest(text, sorted.size());
}

void Summary::appendLosses(std::string& text) const {
    if (_losses.empty())
        return;
    text += "Lost or changed:\n";
    if (_exported + _failed == 1) {
        text += lossreport::textOfLosses(_lossesOfTheOnly, kMostLines);
        return;
    }
    std::vector<LossCount> sorted = _losses;
    std::ranges::stable_sort(sorted, std::greater(), &LossCount::count);
    for (std::size_t i = 0; i < std::min(sorted.size(), kMostLines); ++i)
        fmt::format_to(std::back_inserter(text), "{:>6} x {}\n", sorted[i].count, visibleText(sorted[i].why));
    appendRest(text, sorted.size());
}

std::string Summary::text() const {
    const std::size_t bundles = _exported + _failed;
    std::string text;
    appendWarnings(text);
    appendLosses(text);
    if (bundles > 1 && _failed > 0) {
        text += "Failed:\n";
        for (const std::string& failure : _failures)
            text += fmt::format("  {}\n", failure);
        appendRest(text, _failed);
    }
    if (bundles > 1)
        text += fmt::format("{}: {} exported, {} failed.\n", counted(bundles, "bundle"), _exported, _failed);
    return text;
}

} // namespace brackwater
