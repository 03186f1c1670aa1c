#include "support/ToolRun.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace brackwater::test {

namespace {

// Runs in the new process and must not return to the test.
[[noreturn]] void becomeTool(const ToolStart& start) {
    const int log = open(start.logPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(log, STDERR_FILENO);
    close(log);
    for (const auto& [name, value] : start.environment)
        setenv(name.c_str(), value.c_str(), 1);
    // As when started by a shell, whatever the test's process does with these signals.
    for (const int signalNumber : {SIGXFSZ, SIGINT, SIGQUIT, SIGHUP, SIGTERM})
        std::signal(signalNumber, SIG_DFL);
    // Sets no limits here: a build with coverage counters would hit them first when it writes in between. The tool must
    // not truncate the files of such counters either.
    std::vector<std::string> command;
    if (start.mostBytesOfAFile != 0) {
        command = {"prlimit", "--fsize=" + std::to_string(start.mostBytesOfAFile)};
        setenv("GCOV_PREFIX", (start.logPath + "-counters").c_str(), 1);
    } else if (start.mostMemory != 0) {
        command = {"prlimit", "--as=" + std::to_string(start.mostMemory)};
    }
    command.push_back(start.program);
    command.insert(command.end(), start.arguments.begin(), start.arguments.end());
    std::vector<char*> arguments;
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    for (const int descriptor : start.closed)
        close(descriptor);
    execvp(arguments.front(), arguments.data());
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
