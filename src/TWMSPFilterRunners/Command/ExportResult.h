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

/// What became of one bundle.
struct ExportResult {
    bool exported = false;
    std::string outputName; ///< last component of the output's path; empty without an output
    std::uint64_t tasks = 0;
    std::vector<WarningCount> warnings; ///< in the order of their first
    std::string fault;                  ///< why it failed
    lossreport::LossReport losses;      ///< of an exported one
    std::string comparisonFault;        ///< why the losses are not known; empty where they are
    bool isLogWhole = true;
};

/// The result as bytes, for the way from the worker to the command.
[[nodiscard]] std::string packedResult(const ExportResult& result);
/// Nothing where the bytes are not whole: the worker ended too early.
[[nodiscard]] std::optional<ExportResult> unpackedResult(std::string_view bytes);

} // namespace brackwater
