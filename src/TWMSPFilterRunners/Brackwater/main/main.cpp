#include "Platform/Files/StandardDescriptors.h"
#include "Platform/Log/Log.h"
#include "TWMSPFilterRunners/Brackwater/BrackwaterRunner.h"

#include <csignal>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    brackwater::openStandardDescriptors();
    // A reader of the log that goes away must not end an export half way.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    // Nor must an output beyond the limit on a file's size: its write fails, and the export ends like on a full disk.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    const std::vector<std::string> arguments(argv, argv + argc);
    const int status = brackwater::BrackwaterRunner().run(arguments);
    brackwater::flushLog();
    return status;
}
