#pragma once

#include "mppinspect/JsonWriter.h"

#include <cstddef>
#include <string>
#include <vector>

namespace brackwater::lossreport {

/// A value of a document that is missing or different in the file. All texts are UTF-8 straight from the document and
/// the file: before showing them, escape what may harm a terminal.
struct Loss {
    std::string kind;   ///< an id of LossKinds
    std::string object; ///< "project", "task", "resource", "assignment", "link", "calendar", "baseline"
    std::string id;     ///< in the document
    std::string name;   ///< as known to the planner
    std::string field;
    std::string source; ///< the document's value
    std::string file;   ///< the file's value; empty for none
    std::string why;
};

struct LossReport {
    std::vector<Loss> losses; ///< in document order
};

/// Compares a bundle with its exported file, value by value, in the system time zone. Throws std::runtime_error with a
/// sentence for the user if one of them cannot be read.
[[nodiscard]] LossReport findLosses(const std::string& bundlePath, const std::string& mppPath);

/// For people: one line per loss, grouped by kind, at most `mostLines` lines; the rest is counted. Characters that
/// could harm a terminal are escaped. Empty without losses.
[[nodiscard]] std::string textOfLosses(const LossReport& report, std::size_t mostLines);

/// For programs: writes an array of objects, described in docs/json.md, as the next value.
void writeLosses(inspect::JsonWriter& json, const LossReport& report);

} // namespace brackwater::lossreport
