#include "Platform/Log.h"
#include "TWMSPFilterRunners/Brackwater/BrackwaterRunner.h"

#include <csignal>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    // A reader of the log that goes away must not end an export half way.
    std::signal(SIGPIPE, SIG_IGN);
    const std::vector<std::string> arguments(argv, argv + argc);
    const int status = brackwater::BrackwaterRunner().run(arguments);
    brackwater::flushLog();
    return status;
}
