#pragma once

#include <string>
#include <string_view>

namespace brackwater {

/// Path operations on texts, with the semantics of the desktop platform: they use only the text, except
/// `stringByStandardizingPath`, which looks up the home folder for a tilde.

/// The text after the last point of the last component; empty without one ("a", ".profile", "a." have none).
[[nodiscard]] std::string pathExtension(std::string_view path);
/// The last component; a trailing slash is not part of it ("/a/b/" gives "b", "/" gives "/").
[[nodiscard]] std::string lastPathComponent(std::string_view path);
[[nodiscard]] std::string stringByDeletingPathExtension(std::string_view path);
/// "/a/b" gives "/a", "/a" gives "/", "a" gives "".
[[nodiscard]] std::string stringByDeletingLastPathComponent(std::string_view path);
[[nodiscard]] std::string stringByAppendingPathComponent(std::string_view path, std::string_view component);
[[nodiscard]] std::string stringByAppendingPathExtension(std::string_view path, std::string_view extension);
/// The user's home folder: HOME, or the one in the user database.
[[nodiscard]] std::string homeFolder();
/// Expands a leading tilde and removes "." and ".." components, a trailing slash and repeated slashes. ".." removes the
/// component before it, even a link; in a relative path it stays if there is none to remove. An empty result becomes
/// ".".
[[nodiscard]] std::string stringByStandardizingPath(std::string_view path);
/// Converts ASCII and Unicode letters to lower case.
[[nodiscard]] std::string lowercaseString(std::string_view text);

/// What exists at a path; follows links.
enum class PathKind { Missing, File, Directory };
[[nodiscard]] PathKind kindOfPath(const std::string& path);

} // namespace brackwater
