#pragma once

#include "Platform/FatalSignals.h"

#include <memory>
#include <string>
#include <sys/types.h>

namespace brackwater {

/// The file that the library's sink writes into until its close, ".gsf-save-XXXXXX" beside the destination. The sink
/// moves it onto the destination or takes it away, but leaves it where its opening fails half way, where the move
/// fails, and where a signal ends the process: those are seen to here.
class SinkTemporaryFile {
public:
    /// The file of the sink that was opened just now; null where it cannot be found (a system without /proc). It is
    /// looked up among the process's open files: the library does not tell its name.
    static std::unique_ptr<SinkTemporaryFile> ofNewSink();

    /// Removes the file where it is still there; another one that has its name by now stays.
    void remove() const;

private:
    SinkTemporaryFile(std::string path, dev_t device, ino_t inode);

    FileRemovedAtSignal _file;
    dev_t _device;
    ino_t _inode;
};

} // namespace brackwater
