#pragma once

namespace brackwater {

struct MPPProject;

/// Turns the GUIDs of all records into the byte order of Windows, in which real files hold them: readers then show a
/// version 4 where it belongs. The default resource's GUID is a constant of the format and stays.
void correctGuidOrder(MPPProject& project);

} // namespace brackwater
