#pragma once

#include "TWMSPFilterRunners/Command/FileDescriptor.h"
#include "TWMSPFilterRunners/Command/StopRequests.h"

#include <map>
#include <string>

namespace brackwater {

/// The file for the logs of all exports, one bundle after the other in job order, however the exports overlap.
class LogFile {
public:
    /// Truncates the file. Raises UsageError if it is not writable. Stop requests end the wait for a slow reader of a
    /// pipe.
    LogFile(const std::string& path, const StopRequests& requests);

    /// The descriptor for a job's lines, for its worker: the file itself if it is the job's turn, otherwise an unnamed
    /// file until then. -1 if there is none.
    [[nodiscard]] int beginJob(std::size_t job);
    /// Ends the turn of the current job; its lines are then in the file. `isWhole`: whether its worker could write them
    /// all.
    void endJob(std::size_t job, bool isWhole);
    /// False if a line was lost.
    [[nodiscard]] bool close();

private:
    void append(const FileDescriptor& lines);

    FileDescriptor _file;
    const StopRequests& _requests;
    std::size_t _turn = 0;
    std::map<std::size_t, FileDescriptor> _waiting; ///< lines of the jobs waiting for their turn
    bool _isWhole = true;
};

} // namespace brackwater
