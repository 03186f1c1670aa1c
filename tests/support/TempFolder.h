#pragma once

#include <string>
#include <string_view>

namespace brackwater::test {

/// A new folder, removed with its contents in the destructor.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// The folder itself, without a trailing slash.
    [[nodiscard]] const std::string& path() const noexcept { return _path; }
    /// The path of an entry, which need not exist.
    [[nodiscard]] std::string path(std::string_view entry) const;
    /// Writes a file, creating its parent folders, and returns its path.
    std::string write(std::string_view entry, std::string_view bytes) const;
    /// Creates a folder and returns its path.
    std::string makeFolder(std::string_view entry) const;
    [[nodiscard]] bool has(std::string_view entry) const;
    [[nodiscard]] std::string read(std::string_view entry) const;

private:
    std::string _path;
};

} // namespace brackwater::test
