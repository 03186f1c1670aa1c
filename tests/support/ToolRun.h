#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

namespace brackwater::test {

/// How a built program is started.
struct ToolStart {
    std::string program;                ///< its path
    std::vector<std::string> arguments; ///< behind its name
    std::map<std::string, std::string> environment;
    std::string logPath;              ///< takes standard error
    std::vector<int> closed = {};     ///< descriptors that it is started without
    std::size_t mostBytesOfAFile = 0; ///< 0: no limit
    std::size_t mostMemory = 0;       ///< in bytes of addresses; 0: no limit
};

/// How it ended.
struct ToolEnd {
    int exitStatus = -1;  ///< -1 when a signal ended it
    int signalNumber = 0; ///< 0 when none did
};

/// Starts the program and does not wait for it.
pid_t startTool(const ToolStart& start);
ToolEnd waitForTool(pid_t process);

} // namespace brackwater::test
