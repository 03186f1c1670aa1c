#pragma once

#include <cstddef>

namespace brackwater {

enum class ExportPhase { Loading, Mapping, Writing, Comparing };

/// Receives the progress of an export, for people who wait for it.
class ExportProgress {
public:
    ExportProgress() = default;
    virtual ~ExportProgress() = default;
    ExportProgress(const ExportProgress&) = delete;
    ExportProgress& operator=(const ExportProgress&) = delete;

    /// `done` steps of `all` of the phase are done; both 0 where the steps are not known. Called for every few tasks:
    /// must be quick.
    virtual void advance(ExportPhase phase, std::size_t done, std::size_t all) = 0;
};

} // namespace brackwater
