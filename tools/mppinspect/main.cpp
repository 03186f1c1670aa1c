#include "TextReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <span>
#include <string_view>

namespace {

using brackwater::inspect::Section;

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
    fmt::print(stderr, "{}", text);
    return kWrongArguments;
}

void show(const brackwater::inspect::ProjectFile& project, std::span<const Section> sections) {
    bool first = true;
    for (const Section section : sections) {
        const std::string text = (first ? "" : "\n") + report(project, section);
        std::fwrite(text.data(), 1, text.size(), stdout);
        first = false;
    }
}

} // namespace

int main(int argc, char** argv) {
    std::vector<Section> sections;
    const char* path = nullptr;
    for (const char* argument : std::span(argv, static_cast<std::size_t>(argc)).subspan(argc > 0 ? 1 : 0)) {
        const auto option = std::ranges::find(kOptions, std::string_view(argument), &Option::name);
        if (option != kOptions.end())
            sections.push_back(option->section);
        else if (argument[0] == '-' || path != nullptr)
            return usage();
        else
            path = argument;
    }
    if (path == nullptr)
        return usage();
    if (sections.empty())
        for (const Option& option : kOptions)
            sections.push_back(option.section);
    try {
        show(decode(brackwater::inspect::CompoundFile::open(path)), sections);
    } catch (const std::exception& failure) {
        fmt::print(stderr, "mppinspect: {}\n", failure.what());
        return kFailed;
    }
    return std::fflush(stdout) == 0 ? kDone : kFailed;
}
