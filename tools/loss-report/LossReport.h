#pragma once

#include "mppinspect/JsonWriter.h"

#include <cstddef>
#include <string>
#include <vector>

namespace brackwater::lossreport {

/// A value of a document that did not reach the file, or reads differently there. All texts are UTF-8 as they came from
/// the document and the file: whoever shows them must escape what may harm a terminal.
struct Loss {
    std::string kind;   ///< an id of LossKinds
    std::string object; ///< "project", "task", "resource", "assignment", "link", "calendar", "baseline"
    std::string id;     ///< of the document
    std::string name;   ///< as the planner knows it
    std::string field;
    std::string source; ///< what the document says
    std::string file;   ///< what the file says; empty for nothing
    std::string why;
};

struct LossReport {
    std::vector<Loss> losses; ///< in the order of the document
};

/// Compares a bundle with the file that it was exported to, value by value, in the time zone of the system. Throws
/// std::runtime_error with a sentence for the user where one of the two cannot be read.
[[nodiscard]] LossReport findLosses(const std::string& bundlePath, const std::string& mppPath);

/// For people: a line a loss, grouped by kind, with at most that many lines; the rest is counted. Characters that could
/// harm a terminal are escaped. Empty without losses.
[[nodiscard]] std::string textOfLosses(const LossReport& report, std::size_t mostLines);

/// For programs: an array of objects, as docs/json.md tells, where a value is due.
void writeLosses(inspect::JsonWriter& json, const LossReport& report);

} // namespace brackwater::lossreport
