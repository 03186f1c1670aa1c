#pragma once

#include <string>
#include <string_view>

namespace brackwater {

struct MPPProject;

/// Composes the RTF of all notes as in real files: one paragraph per line, escaped braces and backslashes, and numeric
/// escapes for non-ASCII characters.
void composeNotes(MPPProject& project);

/// The RTF of one note in UTF-8. Each paragraph of the note ends with a line feed.
[[nodiscard]] std::string rtfOfNotes(std::string_view notes);

} // namespace brackwater
