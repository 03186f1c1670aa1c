#include "Platform/Files/StandardDescriptors.h"
#include "Platform/Log/Log.h"
#include "TWMSPFilterRunners/Brackwater/BrackwaterRunner.h"

#include <csignal>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    brackwater::openStandardDescriptors();
    // An export must survive its log's reader.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    // It must also survive the limit on file sizes: the write fails, and the export ends as on a full disk.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    const std::vector<std::string> arguments(argv, argv + argc);
    const int status = brackwater::BrackwaterRunner().run(arguments);
    brackwater::flushLog();
    return status;
}
