#include "CompoundFileOutput.h"
#include "TemplateTree.h"

#include "Platform/Files/StandardDescriptors.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kDone = 0, kFailed = 1, kWrongArguments = 2;

void tell(std::string_view fault) { brackwater::tellOnStandardError(fmt::format("make-template: {}\n", fault)); }

int showHelp(const std::string& text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0 &&
                         close(STDOUT_FILENO) == 0;
    if (!written)
        tell("cannot write the complete output");
    return written ? kDone : kFailed;
}

int refuse(std::string_view reason) {
    tell(fmt::format("{}; see make-template --help", reason));
    return kWrongArguments;
}

int run(int argc, char** argv) {
    using brackwater::layout::VersionFolder;
    CLI::App app("Creates a template with an empty project. The folder selects the layout of calendars and links.",
                 "make-template");
    std::string folder = "112", output;
    app.set_help_flag("--help", "show this text");
    app.set_version_flag("--version", "make-template " BRACKWATER_VERSION, "show the version");
    app.add_option("--folder", folder, "112 for the layout of Project 2007, 114 for that of 2010")
        ->check(CLI::IsMember({"112", "114"}))
        ->type_name("FOLDER");
    app.add_option("OUT.mpp", output, "the file to write; an existing one is replaced")->required();
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return showHelp(app.help());
    } catch (const CLI::CallForVersion& version) {
        return showHelp(fmt::format("{}\n", version.what()));
    } catch (const CLI::RequiredError& error) {
        // An unknown word may be the reason that the name is missing.
        const std::vector<std::string> unknown = app.remaining();
        return refuse(unknown.empty() ? error.what() : CLI::ExtrasError(unknown).what());
    } catch (const CLI::Error& error) {
        return refuse(error.what());
    }
    const VersionFolder version = folder == "112" ? VersionFolder::Project2007 : VersionFolder::Project2010;
    brackwater::layout::writeCompoundFile(output, brackwater::layout::templateTree(version));
    return kDone;
}

} // namespace

int main(int argc, char** argv) {
    brackwater::openStandardDescriptors();
    try {
        return run(argc, argv);
    } catch (const std::exception& failure) {
        tell(failure.what());
        return kFailed;
    }
}
