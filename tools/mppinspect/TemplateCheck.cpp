#include "Check.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <set>

namespace brackwater::inspect {

namespace {

constexpr std::string_view kFolder = "   112";
constexpr std::array<std::string_view, 3> kFormats{"MSProject.MPP12", "MSProject.MPT12", "MSProject.GLOBAL12"};

void checkFormat(const ProjectFile& project, Findings& findings) {
    constexpr std::size_t program = 0, format = 1;
    if (project.compObj.size() <= format)
        return findings.errors.add("CompObj", "the format is not named: an export refuses the template");
    const std::string& name = project.compObj[format];
    if (std::ranges::find(kFormats, name) == kFormats.end())
        findings.errors.add("CompObj", fmt::format("the format is '{}': an export refuses all but '{}'", name,
                                                   fmt::join(kFormats, "', '")));
    if (project.compObj[program] != "Microsoft Project 12.0")
        findings.notes.add(
            "CompObj", fmt::format("saved as '{}': only its layout tells whether it suits", project.compObj[program]));
    if (project.folder != kFolder)
        findings.errors.add("112", "the storage is missing: readers of an export look for the plan there");
}

/// What an export takes out of the template's storages, letter for letter. Everything else there is written anew.
void checkTakenStreams(const ProjectFile& project, Findings& findings) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 6> taken{{{"TBkndTask", "Props"},
                                                                                  {"TBkndRsc", "Props"},
                                                                                  {"TBkndAssn", "Props"},
                                                                                  {"TBkndCal", "Props"},
                                                                                  {"TBkndCons", "Props"},
                                                                                  {"TBkndCons", "VarMeta"}}};
    std::set<std::string, std::less<>> streams;
    for (const EntryInfo& entry : project.entries)
        if (!entry.isStorage)
            streams.insert(entry.path);
    for (const auto& [storage, stream] : taken)
        if (!streams.contains(fmt::format("{}/{}/{}", project.folder, storage, stream)))
            findings.errors.add(fmt::format("{}/{}", storage, stream), "the stream is missing: an export fails here");
    for (const std::string_view summary : {"SummaryInformation", "DocumentSummaryInformation"})
        if (!streams.contains(fmt::format("\x05{}", summary)))
            findings.notes.add(std::string(summary), "the stream is missing: an export will not have it either");
}

/// Storages that an export fills by itself. It copies all others, stream by stream, and cannot copy a storage in them.
bool isWritten(std::string_view name) {
    constexpr std::array<std::string_view, 8> written{"TBkndTask", "TBkndRsc", "TBkndAssn", "TBkndCal",
                                                      "TBkndCons", "CV_iew",   "CTable",    "CEdl"};
    return std::ranges::find(written, name) != written.end();
}

void checkDepth(const ProjectFile& project, Findings& findings) {
    for (const EntryInfo& entry : project.entries) {
        const std::size_t first = entry.path.find('/');
        const std::size_t second = first == std::string::npos ? first : entry.path.find('/', first + 1);
        if (!entry.isStorage || second == std::string::npos || entry.path.find('/', second + 1) != std::string::npos)
            continue;
        const std::string above = entry.path.substr(0, second);
        if (!isWritten(std::string_view(above).substr(first + 1)))
            findings.errors.add(above, "a storage at the third level: an export cannot copy it and fails",
                                entry.path.substr(second + 1));
    }
}

/// An export gives values to the properties that the template has; it adds none.
void checkProperties(const ProjectFile& project, Findings& findings) {
    constexpr std::array<std::pair<std::uint32_t, std::string_view>, 10> needed{{{0x02400002, "start"},
                                                                                 {0x02400003, "finish"},
                                                                                 {0x02400004, "scheduled from start"},
                                                                                 {0x0240000E, "default calendar"},
                                                                                 {0x02400010, "currency symbol"},
                                                                                 {0x02400012, "currency digits"},
                                                                                 {0x0240001D, "minutes per day"},
                                                                                 {0x0240001E, "minutes per week"},
                                                                                 {0x0240138F, "days per month"},
                                                                                 {0x02401388, "default hours"}}};
    std::set<std::uint32_t> present;
    for (const ProjectProperty& property : project.properties)
        present.insert(property.type);
    for (const auto& [type, name] : needed)
        if (!present.contains(type))
            findings.errors.add("Props", "a property is missing: an export will not have it, and readers rely on it",
                                fmt::format("{} (0x{:08X})", name, type));
}

} // namespace

void checkTemplate(const ProjectFile& project, Findings& findings) {
    checkFormat(project, findings);
    if (project.folder.empty())
        return;
    checkTakenStreams(project, findings);
    checkDepth(project, findings);
    checkProperties(project, findings);
}

} // namespace brackwater::inspect
