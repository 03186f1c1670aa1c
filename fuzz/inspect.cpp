// Arbitrary bytes as a file to show.
#include "FuzzSupport.h"
#include "LibraryLeaks.h"

#include "mppinspect/Check.h"
#include "mppinspect/CompoundFile.h"
#include "mppinspect/GanttPage.h"
#include "mppinspect/JsonReport.h"
#include "mppinspect/ProjectFile.h"
#include "mppinspect/TextReport.h"

#include <exception>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brackwater::inspect;
    try {
        const CompoundFile file = CompoundFile::fromBytes(Bytes(data, data + size));
        const ProjectFile project = decode(file);
        for (const Section section :
             {Section::Summary, Section::Entries, Section::Properties, Section::Tasks, Section::Resources,
              Section::Assignments, Section::Links, Section::Calendars, Section::Complaints})
            (void)report(project, section);
        (void)findingsText(check(file, project));
        writeJson(project, [](std::string_view) {});
        writeGanttPage(project, [](std::string_view) {});
    } catch (const std::exception&) {
        // A file that is no compound file, or none that can be shown.
    }
    return 0;
}
