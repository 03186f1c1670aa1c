#pragma once

#include <string>
#include <string_view>

namespace brackwater {

struct MPPProject;

/// Composes the RTF of all notes as real files hold it: a paragraph for each line, braces and backslashes escaped, and
/// characters outside ASCII told by numbers, so that none is lost.
void composeNotes(MPPProject& project);

/// The RTF of one note in UTF-8, whose paragraphs each end in a line feed.
[[nodiscard]] std::string rtfOfNotes(std::string_view notes);

} // namespace brackwater
