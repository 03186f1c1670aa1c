#pragma once

#include "TWMSPFilterRunners/Command/ExportPlan.h"
#include "TWMSPFilterRunners/Command/ExportResult.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace brackwater {

/// The line about one bundle for people, with visible control characters, without a line end.
[[nodiscard]] std::string lineOfResult(const ExportJob& job, const ExportResult& result);

/// Collects the results of a run for its end.
class Summary {
public:
    /// Kinds of losses that are expected, as in the report.
    explicit Summary(std::vector<std::string> acceptedLosses) : _acceptedLosses(std::move(acceptedLosses)) {}

    void add(const ExportJob& job, const ExportResult& result);

    [[nodiscard]] std::size_t exported() const noexcept { return _exported; }
    [[nodiscard]] std::size_t failed() const noexcept { return _failed; }
    /// Whether an exported bundle lost something that is not accepted, or its losses are unknown.
    [[nodiscard]] bool hasUnacceptedLoss() const noexcept { return _hasUnacceptedLoss; }
    /// Text for people: the warnings grouped by text, the losses (each of a single bundle, otherwise grouped by
    /// reason), the failed bundles with their reasons, and the totals. At most twenty lines of each; the rest is
    /// counted.
    [[nodiscard]] std::string text() const;

private:
    struct LossCount {
        std::string why;
        std::uint64_t count = 0;
    };

    void addLosses(const lossreport::LossReport& report);
    void appendLosses(std::string& text) const;
    void appendWarnings(std::string& text) const;

    std::vector<std::string> _acceptedLosses;
    std::size_t _exported = 0;
    std::size_t _failed = 0;
    std::vector<WarningCount> _warnings;
    std::unordered_map<std::string, std::size_t> _placeOfWarning;
    std::vector<std::string> _failures;
    lossreport::LossReport _lossesOfTheOnly; ///< if there is only one bundle
    std::vector<LossCount> _losses;
    std::unordered_map<std::string, std::size_t> _placeOfLoss; ///< by kind
    bool _hasUnacceptedLoss = false;
};

} // namespace brackwater
