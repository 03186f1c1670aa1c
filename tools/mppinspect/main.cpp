#include "Check.h"
#include "GanttPage.h"
#include "JsonReport.h"
#include "TextReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

using namespace brackwater::inspect;

constexpr int kDone = 0, kFailed = 1, kWrongArguments = 2;

struct Option {
    std::string_view name;
    Section section;
    std::string_view help;
};

constexpr std::array kOptions{
    Option{"--summary", Section::Summary, "how much of everything there is"},
    Option{"--entries", Section::Entries, "storages and streams with their sizes"},
    Option{"--properties", Section::Properties, "properties of the project and the summary streams"},
    Option{"--tasks", Section::Tasks, "tasks with their text fields, baselines and notes"},
    Option{"--resources", Section::Resources, "resources likewise"},
    Option{"--assignments", Section::Assignments, "assignments"},
    Option{"--links", Section::Links, "links between tasks"},
    Option{"--calendars", Section::Calendars, "calendars with their weeks, exceptions and work weeks"},
    Option{"--complaints", Section::Complaints, "what does not fit in the file"},
};

int usage() {
    std::string text = "Usage: mppinspect [OPTION ...] FILE.mpp\n"
                       "Shows what a project file holds; without an option everything.\n";
    for (const Option& option : kOptions)
        text += fmt::format("  {:<14}{}\n", option.name, option.help);
    text += "Or, each alone:\n"
            "  --json        everything as JSON\n"
            "  --gantt OUT.html\n"
            "                the plan as a page with a bar chart, for any browser and for printing\n"
            "  --check       whether a template suits, or what a planner would stumble over: then status 1\n";
    fmt::print(stderr, "{}", text);
    return kWrongArguments;
}

enum class Output { Sections, Json, Gantt, Check };

struct Arguments {
    Output output = Output::Sections;
    std::vector<Section> sections;
    const char* path = nullptr;
    const char* page = nullptr; ///< of --gantt
};

std::optional<Output> outputOf(std::string_view argument) {
    if (argument == "--json")
        return Output::Json;
    if (argument == "--gantt")
        return Output::Gantt;
    return argument == "--check" ? std::optional(Output::Check) : std::nullopt;
}

/// Nothing where they make no sense.
std::optional<Arguments> parse(std::span<char*> arguments) {
    Arguments parsed;
    for (const std::string_view argument : arguments) {
        if (parsed.output == Output::Gantt && parsed.page == nullptr && !argument.empty()) {
            parsed.page = argument.data();
            continue;
        }
        const auto option = std::ranges::find(kOptions, argument, &Option::name);
        if (option != kOptions.end())
            parsed.sections.push_back(option->section);
        else if (const auto output = outputOf(argument); output && parsed.output == Output::Sections)
            parsed.output = *output;
        else if (argument.starts_with('-') || argument.empty() || parsed.path != nullptr)
            return std::nullopt;
        else
            parsed.path = argument.data();
    }
    if (parsed.path == nullptr || (parsed.output != Output::Sections && !parsed.sections.empty()))
        return std::nullopt;
    return parsed;
}

void print(std::string_view text) { (void)std::fwrite(text.data(), 1, text.size(), stdout); }

void printSections(const ProjectFile& project, std::vector<Section> sections) {
    if (sections.empty())
        for (const Option& option : kOptions)
            sections.push_back(option.section);
    bool first = true;
    for (const Section section : sections) {
        print((first ? "" : "\n") + report(project, section));
        first = false;
    }
}

void writePage(const ProjectFile& project, const char* path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "wb"), std::fclose);
    if (!file)
        throw std::system_error(errno, std::generic_category(), fmt::format("cannot write '{}'", path));
    writeGanttPage(project,
                   [&file](std::string_view text) { (void)std::fwrite(text.data(), 1, text.size(), file.get()); });
    if (std::fflush(file.get()) != 0 || std::ferror(file.get()) != 0)
        throw std::runtime_error(fmt::format("cannot write the whole of '{}'", path));
}

int run(const Arguments& arguments) {
    const CompoundFile file = CompoundFile::open(arguments.path);
    const ProjectFile project = decode(file);
    int status = kDone;
    switch (arguments.output) {
    case Output::Sections:
        printSections(project, arguments.sections);
        break;
    case Output::Json:
        writeJson(project, print);
        break;
    case Output::Gantt:
        writePage(project, arguments.page);
        break;
    case Output::Check: {
        const Findings findings = check(file, project);
        print(findingsText(findings));
        status = findings.any() ? kFailed : kDone;
        break;
    }
    }
    return std::fflush(stdout) == 0 ? status : kFailed;
}

} // namespace

int main(int argc, char** argv) {
    const auto arguments = parse(std::span(argv, static_cast<std::size_t>(argc)).subspan(argc > 0 ? 1 : 0));
    if (!arguments)
        return usage();
    try {
        return run(*arguments);
    } catch (const std::exception& failure) {
        fmt::print(stderr, "mppinspect: {}\n", failure.what());
        return kFailed;
    }
}
