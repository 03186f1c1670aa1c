#pragma once

#include <string>
#include <string_view>

namespace brackwater {

/// A URL. Exports work on file URLs, made from a path; any other text makes a URL for which `isFileURL` is false, and
/// which the runner's checks reject.
class FileURL {
public:
    /// A file URL of a path; a relative path is relative to the current working folder. With `isDirectory` its text
    /// ends in a slash.
    [[nodiscard]] static FileURL fileURLWithPath(std::string_view path, bool isDirectory);
    /// A URL of any scheme, unchanged.
    [[nodiscard]] static FileURL urlWithString(std::string_view text);

    [[nodiscard]] bool isFileURL() const noexcept { return _isFile; }
    /// The path, not percent-encoded and without a trailing slash; empty for another scheme.
    [[nodiscard]] const std::string& path() const noexcept { return _path; }
    /// The URL's text, percent-encoded as UTF-8: "file:///Users/a%20b/Plan.zelb/".
    [[nodiscard]] const std::string& absoluteString() const noexcept { return _absoluteString; }
    /// A file URL of an entry of this folder.
    [[nodiscard]] FileURL urlByAppendingPathComponent(std::string_view component, bool isDirectory = false) const;

private:
    std::string _path;
    std::string _absoluteString;
    bool _isFile = false;
};

} // namespace brackwater
