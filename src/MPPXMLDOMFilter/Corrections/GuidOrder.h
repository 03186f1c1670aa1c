#pragma once

namespace brackwater {

struct MPPProject;

/// Converts the GUIDs of all records to Windows byte order, as in real files: readers then see a correct version 4. The
/// default resource's GUID is a constant of the format and stays.
void correctGuidOrder(MPPProject& project);

} // namespace brackwater
