#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

namespace brackwater::test {

/// How to start a built program.
struct ToolStart {
    std::string program;                ///< its path
    std::vector<std::string> arguments; ///< after its name
    std::map<std::string, std::string> environment;
    std::string logPath;              ///< takes standard error
    std::vector<int> closed = {};     ///< descriptors closed at its start
    std::size_t mostBytesOfAFile = 0; ///< 0: no limit
    std::size_t mostMemory = 0;       ///< bytes of address space; 0: no limit
};

/// How it ended.
struct ToolEnd {
    int exitStatus = -1;  ///< -1 if a signal ended it
    int signalNumber = 0; ///< 0 if no signal did
};

/// Starts the program without waiting for it.
pid_t startTool(const ToolStart& start);
ToolEnd waitForTool(pid_t process);

} // namespace brackwater::test
