#include "Check.h"
#include "CommandLine.h"
#include "GanttPage.h"
#include "JsonReport.h"
#include "PageFile.h"
#include "StandardOutput.h"
#include "TextReport.h"
#include "TextTable.h"

#include "Platform/Files/StandardDescriptors.h"

#include <fmt/format.h>

#include <algorithm>
#include <csignal>
#include <exception>
#include <stdexcept>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>

namespace {

using namespace brackwater::inspect;

/// Characters on a line of the terminal; 0 where the output goes elsewhere.
std::size_t terminalWidth() {
    winsize size{};
    return isatty(STDOUT_FILENO) != 0 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

void printSections(const ProjectFile& project, const Arguments& arguments) {
    const std::size_t width = arguments.width ? *arguments.width : terminalWidth();
    bool first = true;
    for (const Section section : arguments.sections) {
        StandardOutput::write((first ? "" : "\n") + report(project, section, width));
        first = false;
    }
}

void print(const ProjectFile& project, const Arguments& arguments) {
    switch (arguments.form) {
    case Form::Text:
        return printSections(project, arguments);
    case Form::Csv:
        return StandardOutput::write(csv(project, arguments.sections.front()));
    case Form::Json:
        return writeJson(project, StandardOutput::write, arguments.sections);
    }
}

void writePage(const ProjectFile& project, const Arguments& arguments) {
    if (*arguments.page == "-")
        return writeGanttPage(project, StandardOutput::write, arguments.gantt);
    PageFile page(*arguments.page, arguments.path, arguments.force);
    writeGanttPage(
        project, [&page](std::string_view text) { page.write(text); }, arguments.gantt);
    page.publish();
}

int printFindings(const CompoundFile& file, const ProjectFile& project, const Arguments& arguments) {
    const Findings findings = check(file, project);
    if (arguments.form == Form::Json)
        writeJson(findings, StandardOutput::write);
    else
        StandardOutput::write(findingsText(findings));
    return findings.any() ? kFailed : kDone;
}

// The streams and what is odd about them can be shown of any compound file, all else only of a plan.
bool needsPlan(const Arguments& arguments) {
    const auto isOfAnyFile = [](Section section) {
        return section == Section::Entries || section == Section::Complaints;
    };
    return !arguments.check && (arguments.sections.empty() || !std::ranges::all_of(arguments.sections, isOfAnyFile));
}

int run(const Arguments& arguments) {
    const CompoundFile file = CompoundFile::open(arguments.path);
    const ProjectFile project = decode(file);
    if (const std::string other = otherFormat(project); !other.empty())
        throw std::runtime_error(
            fmt::format("'{}' is {}: only files of the 2007 format are read", arguments.path, other));
    if (project.folder.empty() && needsPlan(arguments))
        throw std::runtime_error(fmt::format("'{}' holds no project of the 2007 format", arguments.path));
    if (arguments.check)
        return printFindings(file, project, arguments);
    if (arguments.page)
        writePage(project, arguments);
    else
        print(project, arguments);
    return kDone;
}

void complain(std::string_view what) {
    brackwater::tellOnStandardError(fmt::format("mppinspect: {}\n", printable(what)));
}

} // namespace

int main(int argc, char** argv) {
    const bool outputIsClosed = fcntl(STDOUT_FILENO, F_GETFD) == -1;
    brackwater::openStandardDescriptors();
    // Beyond a limit on a file's size writes fail, and that is told.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    try {
        const CommandLine command = parseCommandLine(argc, argv);
        int status = command.status;
        if (!command.arguments && status == kWrongArguments)
            complain(command.text);
        else if (!command.arguments)
            StandardOutput::write(command.text);
        else
            status = run(*command.arguments);
        const bool usesOutput = !command.arguments || !command.arguments->page || *command.arguments->page == "-";
        if (outputIsClosed && usesOutput && status != kWrongArguments)
            throw std::runtime_error("standard output is closed");
        StandardOutput::close();
        return status;
    } catch (const std::exception& failure) {
        complain(failure.what());
        return kFailed;
    }
}
