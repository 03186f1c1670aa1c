#include "Check.h"

#include "ConsistencyCheck.h"
#include "TextTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace brackwater::inspect {

namespace {

// Words of the complaints about what gets lost; all others tell of something odd that readers put up with.
constexpr std::array<std::string_view, 12> kLosses{
    "readers drop", "readers refuse", "readers skip", "readers show every", "missing",   "cannot be",
    "cut off",      "outside",        "no field map", "password",           "scrambled", "longer than the file"};
// True of every export: its second block has the size that the format asks for, whatever a template's map adds behind
// it, and all its tasks have the same place in the sheet.
constexpr std::array<std::string_view, 2> kOfEveryExport{"a row of the second block is shorter than",
                                                         "places in the sheet repeat"};

void addComplaints(const Complaints& complaints, Findings& findings) {
    for (const Complaints::Group& group : complaints.groups()) {
        const auto isIn = [&group](std::string_view words) { return group.what.find(words) != std::string::npos; };
        if (std::ranges::any_of(kOfEveryExport, isIn))
            findings.notes.add(group);
        else if (std::ranges::any_of(kLosses, isIn))
            findings.errors.add(group);
        else
            findings.warnings.add(group);
    }
}

void appendLines(std::string& text, std::string_view severity, const Complaints& complaints) {
    for (const std::string& line : complaints.lines())
        text += fmt::format("{}: {}\n", severity, printable(line));
}

} // namespace

bool holdsPlan(const ProjectFile& project) {
    return std::ranges::any_of(project.tasks, [](const Task& task) { return task.uniqueId != 0; });
}

Findings check(const CompoundFile& file, const ProjectFile& project) {
    Findings findings;
    addComplaints(project.complaints, findings);
    if (!holdsPlan(project))
        checkTemplate(project, findings);
    if (!project.folder.empty())
        checkFieldMaps(file, project, findings);
    checkConsistency(file, project, findings);
    checkPlan(project, findings);
    return findings;
}

std::string findingsText(const Findings& findings) {
    std::string text;
    appendLines(text, "error", findings.errors);
    appendLines(text, "warning", findings.warnings);
    appendLines(text, "note", findings.notes);
    if (!findings.any())
        text += "nothing found\n";
    return text;
}

} // namespace brackwater::inspect
