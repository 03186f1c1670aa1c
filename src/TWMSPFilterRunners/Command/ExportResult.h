#pragma once

#include "loss-report/LossReport.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

struct WarningCount {
    std::string text;
    std::uint64_t count = 0;
};

/// The outcome for one bundle.
struct ExportResult {
    bool exported = false;
    std::string outputName; ///< last component of the output's path; empty without an output
    std::uint64_t tasks = 0;
    std::vector<WarningCount> warnings; ///< in order of first occurrence
    std::string fault;                  ///< why it failed
    lossreport::LossReport losses;      ///< if exported
    std::string comparisonFault;        ///< why the losses are unknown; empty if they are known
    bool isLogWhole = true;
};

/// The result as bytes, to send it from the worker to the command.
[[nodiscard]] std::string packedResult(const ExportResult& result);
/// Nothing if the bytes are incomplete: the worker ended too early.
[[nodiscard]] std::optional<ExportResult> unpackedResult(std::string_view bytes);

} // namespace brackwater
