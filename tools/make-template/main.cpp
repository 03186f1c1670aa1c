#include "CompoundFileOutput.h"
#include "TemplateTree.h"

#include "Platform/StandardDescriptors.h"

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <span>
#include <string_view>

namespace {

constexpr int kDone = 0, kFailed = 1, kWrongArguments = 2;

int usage() {
    fmt::print(stderr,
               "Usage: make-template [--folder 112|114] OUT.mpp\n"
               "Lays out a template with an empty project. The folder decides the form of calendars and links.\n");
    return kWrongArguments;
}

} // namespace

int main(int argc, char** argv) {
    brackwater::openStandardDescriptors();
    using brackwater::layout::VersionFolder;
    std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    arguments = arguments.subspan(arguments.empty() ? 0 : 1);
    VersionFolder folder = VersionFolder::Project2007;
    if (arguments.size() == 3 && std::string_view(arguments[0]) == "--folder") {
        const std::string_view number = arguments[1];
        if (number == "114")
            folder = VersionFolder::Project2010;
        else if (number != "112")
            return usage();
        arguments = arguments.subspan(2);
    }
    if (arguments.size() != 1 || arguments[0][0] == '-')
        return usage();
    try {
        brackwater::layout::writeCompoundFile(arguments[0], brackwater::layout::templateTree(folder));
    } catch (const std::exception& failure) {
        fmt::print(stderr, "make-template: {}\n", failure.what());
        return kFailed;
    }
    return kDone;
}
