#include "CompoundFileOutput.h"
#include "TemplateTree.h"

#include "Platform/StandardDescriptors.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>

namespace {

constexpr int kDone = 0, kFailed = 1, kWrongArguments = 2;

int showHelp(const std::string& text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fclose(stdout) == 0;
    if (!written)
        fmt::print(stderr, "make-template: cannot write the whole of the output\n");
    return written ? kDone : kFailed;
}

} // namespace

int main(int argc, char** argv) {
    brackwater::openStandardDescriptors();
    using brackwater::layout::VersionFolder;
    brackwater::openStandardDescriptors();
    CLI::App app("Lays out a template with an empty project. The folder decides the form of calendars and links.",
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
        brackwater::layout::writeCompoundFile(
            output, brackwater::layout::templateTree(folder == "112" ? VersionFolder::Project2007
                                                                     : VersionFolder::Project2010));
    } catch (const CLI::CallForHelp&) {
        return showHelp(app.help());
    } catch (const CLI::CallForVersion& version) {
        return showHelp(fmt::format("{}\n", version.what()));
    } catch (const CLI::Error& error) {
        fmt::print(stderr, "make-template: {}; see make-template --help\n", error.what());
        return kWrongArguments;
    } catch (const std::exception& failure) {
        fmt::print(stderr, "make-template: {}\n", failure.what());
        return kFailed;
    }
    return kDone;
}
