#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

enum class FileKinds {
    Regular,
    Any ///< also pipes and devices; gives up on a named pipe that nobody opens for writing within some seconds
};

/// The bytes of a file. Nothing if it cannot be read, has more than `most` bytes, or is of another kind; folders are
/// never accepted.
[[nodiscard]] std::optional<std::string> bytesOfFile(const std::string& path, std::size_t most, FileKinds kinds);

/// The contents of a UTF-8 text file or pipe, without a leading byte order mark. Nothing if it cannot be read, is a
/// folder, has more than 128 MiB, or is not valid UTF-8.
[[nodiscard]] std::optional<std::string> stringWithContentsOfFile(const std::string& path);

/// The pieces between newline characters: line feed, vertical tab, form feed, carriage return, next line (U+0085), line
/// and paragraph separator (U+2028, U+2029). Each separates individually, so that a CR LF pair has an empty piece in
/// its middle; an empty text is one empty piece. The pieces are views of `text`; only wanted ones are returned.
[[nodiscard]] std::vector<std::string_view> componentsSeparatedByNewlines(
    std::string_view text, bool (*isWanted)(std::string_view) = [](std::string_view) { return true; });

} // namespace brackwater
