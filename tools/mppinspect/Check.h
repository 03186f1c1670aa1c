#pragma once

#include "ProjectFile.h"

namespace brackwater::inspect {

/// What stands in the way of somebody who wants to use a file, by weight. A fault that comes back in many rows is one
/// finding.
struct Findings {
    Complaints errors;   ///< an export fails, or readers refuse, drop or misread something
    Complaints warnings; ///< readers take it, but it is hardly what a planner meant
    Complaints notes;    ///< good to know; nothing needs to be done

    /// Whether there is an error or a warning.
    [[nodiscard]] bool any() const noexcept { return !errors.empty() || !warnings.empty(); }
};

/// Whether the file holds tasks besides the project's own row. One without is taken for a template.
[[nodiscard]] bool holdsPlan(const ProjectFile& project);

/// All findings of a file: what its decoding complained of and what a planner would stumble over; of a template also
/// what keeps it from being exported into.
[[nodiscard]] Findings check(const CompoundFile& file, const ProjectFile& project);

// The parts of the whole, each adding what it finds.
void checkTemplate(const ProjectFile& project, Findings& findings);
void checkFieldMaps(const CompoundFile& file, const ProjectFile& project, Findings& findings);
void checkPlan(const ProjectFile& project, Findings& findings);

/// One line a finding, the heaviest first; "nothing found" behind them where there is no error and no warning.
[[nodiscard]] std::string findingsText(const Findings& findings);

} // namespace brackwater::inspect
