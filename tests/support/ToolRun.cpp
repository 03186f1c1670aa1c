#include "support/ToolRun.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brackwater::test {

namespace {

// In the new process: nothing of the test's own may come back.
[[noreturn]] void becomeTool(const ToolStart& start) {
    const int log = open(start.logPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(log, STDERR_FILENO);
    close(log);
    for (const auto& [name, value] : start.environment)
        setenv(name.c_str(), value.c_str(), 1);
    // As a shell starts it, whatever the test's process does with these signals.
    for (const int signalNumber : {SIGXFSZ, SIGINT, SIGQUIT, SIGHUP, SIGTERM})
        std::signal(signalNumber, SIG_DFL);
    if (start.mostBytesOfAFile != 0) {
        const rlimit limit{start.mostBytesOfAFile, start.mostBytesOfAFile};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    std::vector<char*> arguments{const_cast<char*>(start.program.c_str())};
    for (const std::string& argument : start.arguments)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    execv(start.program.c_str(), arguments.data());
    _exit(127);
}

} // namespace

pid_t startTool(const ToolStart& start) {
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process < 0)
        throw std::runtime_error("no process for the tool");
    if (process == 0)
        becomeTool(start);
    return process;
}

ToolEnd waitForTool(pid_t process) {
    int status = 0;
    if (waitpid(process, &status, 0) != process)
        throw std::runtime_error("the tool's end was not told");
    ToolEnd end;
    if (WIFEXITED(status))
        end.exitStatus = WEXITSTATUS(status);
    else
        end.signalNumber = WTERMSIG(status);
    return end;
}

} // namespace brackwater::test
