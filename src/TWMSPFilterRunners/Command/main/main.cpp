#include "Platform/Files/StandardDescriptors.h"
#include "TWMSPFilterRunners/Command/CommandRun.h"

#include <string>
#include <vector>

int main(int argc, char** argv) {
    brackwater::openStandardDescriptors();
    const std::vector<std::string> arguments(argv, argv + argc);
    return brackwater::runCommand(arguments);
}
