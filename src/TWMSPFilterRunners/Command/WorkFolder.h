#pragma once

#include <string>
#include <utility>

namespace brackwater {

/// Where a worker makes its outputs: a folder beside their place, so that whatever it leaves there goes with the
/// folder.
class WorkFolder {
public:
    WorkFolder() = default;
    WorkFolder(WorkFolder&& other) noexcept
        : _outputFolder(std::exchange(other._outputFolder, {})), _path(std::exchange(other._path, {})) {}
    WorkFolder& operator=(WorkFolder&&) = delete;
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder() { remove(); }

    /// Makes it, or keeps the one that is there already. Raises std::system_error.
    void makeIn(const std::string& outputFolder);
    /// Removes it with all that it holds.
    void remove() noexcept;
    /// Empty without one.
    [[nodiscard]] const std::string& path() const noexcept { return _path; }

private:
    std::string _outputFolder;
    std::string _path;
};

} // namespace brackwater
