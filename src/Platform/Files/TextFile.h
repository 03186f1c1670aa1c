#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

enum class FileKinds {
    Regular,
    Any ///< pipes and devices too; a named pipe that nobody opens for writing within some seconds is given up
};

/// The bytes of a file, at most so many. Nothing where it cannot be read, holds more, or is of another kind; folders
/// are of none.
[[nodiscard]] std::optional<std::string> bytesOfFile(const std::string& path, std::size_t most, FileKinds kinds);

/// The whole of a text file in UTF-8, without a byte order mark at its start. Nothing where the file cannot be read, is
/// a folder, holds more than 128 MiB, or is not valid UTF-8. A pipe will do.
[[nodiscard]] std::optional<std::string> stringWithContentsOfFile(const std::string& path);

/// The pieces between newline characters: line feed, vertical tab, form feed, carriage return, next line (U+0085), line
/// and paragraph separator (U+2028, U+2029). Each of them separates on its own, so that a CR LF pair has an empty piece
/// in its middle; an empty text is one empty piece. The pieces are views of `text`; those that are not wanted are left
/// out.
[[nodiscard]] std::vector<std::string_view> componentsSeparatedByNewlines(
    std::string_view text, bool (*isWanted)(std::string_view) = [](std::string_view) { return true; });

} // namespace brackwater
