#pragma once

#include <string>
#include <utility>

namespace brackwater {

/// The temporary folder in which a worker creates its outputs, beside their destination, so that removing it also
/// removes anything left in it.
class WorkFolder {
public:
    WorkFolder() = default;
    WorkFolder(WorkFolder&& other) noexcept
        : _outputFolder(std::exchange(other._outputFolder, {})), _path(std::exchange(other._path, {})) {}
    WorkFolder& operator=(WorkFolder&&) = delete;
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder() { remove(); }

    /// Creates it, or keeps the existing one. Raises std::system_error.
    void makeIn(const std::string& outputFolder);
    /// Removes it with its contents.
    void remove() noexcept;
    /// Empty without one.
    [[nodiscard]] const std::string& path() const noexcept { return _path; }

private:
    std::string _outputFolder;
    std::string _path;
};

} // namespace brackwater
