#include "DecodedFile.h"

#include "mppinspect/CompoundFile.h"
#include "mppinspect/TextReport.h"

#include <regex>
#include <sstream>

namespace brackwater::test {

namespace {

using inspect::Section;

// Template properties that an export leaves alone, and its field maps, have nothing to do with the bundle.
std::string withoutForeignProperties(const std::string& report) {
    static const std::regex kForeign("0x[0-9a-fA-F]{8} +([0-9]+ bytes .*|field map of .*)");
    std::istringstream lines(report);
    std::string kept;
    for (std::string line; std::getline(lines, line);)
        if (!std::regex_match(line, kForeign))
            kept += line + "\n";
    return kept;
}

} // namespace

std::string templateOfLayout(const std::string& layout) {
    return std::string(BRACKWATER_BINARY_DIR) + "/share/Template" + (layout == "114" ? "114" : "") + ".mpp";
}

inspect::ProjectFile decodedFile(const std::string& path) {
    inspect::ProjectFile project = inspect::decode(inspect::CompoundFile::open(path));
    const std::uint32_t first = project.links.empty() ? 1 : project.links.front().id;
    for (auto& link : project.links)
        link.id -= first - 1;
    return project;
}

std::string textOf(const inspect::ProjectFile& project) {
    static const std::regex kGuid("[0-9a-fA-F]{8}-[0-9a-fA-F]{4}-[0-9a-fA-F]{4}-[0-9a-fA-F]{4}-[0-9a-fA-F]{12}");
    std::string text;
    for (const Section section : {Section::Summary, Section::Properties, Section::Tasks, Section::Resources,
                                  Section::Assignments, Section::Links, Section::Calendars, Section::Complaints})
        text += (text.empty() ? "" : "\n") + inspect::report(project, section);
    return std::regex_replace(withoutForeignProperties(text), kGuid, "<guid>");
}

} // namespace brackwater::test
