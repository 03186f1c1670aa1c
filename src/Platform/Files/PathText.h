#pragma once

#include <string>
#include <string_view>

namespace brackwater {

/// Path operations on texts, with the semantics of the desktop platform: they look at the text only, apart from
/// `stringByStandardizingPath`, which asks for the home folder of a tilde.

/// Text behind the last point of the last component; empty without one ("a", ".profile", "a." have none).
[[nodiscard]] std::string pathExtension(std::string_view path);
/// The last component; a trailing slash is not part of it ("/a/b/" gives "b", "/" gives "/").
[[nodiscard]] std::string lastPathComponent(std::string_view path);
[[nodiscard]] std::string stringByDeletingPathExtension(std::string_view path);
/// "/a/b" gives "/a", "/a" gives "/", "a" gives "".
[[nodiscard]] std::string stringByDeletingLastPathComponent(std::string_view path);
[[nodiscard]] std::string stringByAppendingPathComponent(std::string_view path, std::string_view component);
[[nodiscard]] std::string stringByAppendingPathExtension(std::string_view path, std::string_view extension);
/// The user's home folder: HOME, or what the machine knows of the user.
[[nodiscard]] std::string homeFolder();
/// Expands a leading tilde, removes "." and ".." components, a trailing slash and repeated slashes. ".." takes the
/// component before it away, whether that is a link or not; in a relative path one stays where none is left to take.
/// Where nothing is left the result is ".".
[[nodiscard]] std::string stringByStandardizingPath(std::string_view path);
/// ASCII and Unicode letters folded to lower case.
[[nodiscard]] std::string lowercaseString(std::string_view text);

/// What stands at a path; links are followed.
enum class PathKind { Missing, File, Directory };
[[nodiscard]] PathKind kindOfPath(const std::string& path);

} // namespace brackwater
