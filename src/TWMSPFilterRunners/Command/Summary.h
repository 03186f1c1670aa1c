#pragma once

#include "TWMSPFilterRunners/Command/ExportPlan.h"
#include "TWMSPFilterRunners/Command/ExportResult.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace brackwater {

/// What a line for people says of one bundle, controls made visible; without a line end.
[[nodiscard]] std::string lineOfResult(const ExportJob& job, const ExportResult& result);

/// Gathers the results of a run for its end.
class Summary {
public:
    void add(const ExportJob& job, const ExportResult& result);

    [[nodiscard]] std::size_t exported() const noexcept { return _exported; }
    [[nodiscard]] std::size_t failed() const noexcept { return _failed; }
    /// Text for people: how many, the warnings grouped by text, and the failed bundles with their reasons. At most
    /// twenty lines of each, the rest counted. Empty where the lines of the bundles have said it all.
    [[nodiscard]] std::string text() const;

private:
    std::size_t _exported = 0;
    std::size_t _failed = 0;
    std::vector<WarningCount> _warnings;
    std::unordered_map<std::string, std::size_t> _placeOfWarning;
    std::vector<std::string> _failures;
};

} // namespace brackwater
