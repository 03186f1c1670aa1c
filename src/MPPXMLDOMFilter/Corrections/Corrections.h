#pragma once

namespace brackwater {

struct MPPProject;

/// Sets in the records what readers take differently from what the exact export writes, one small pass for each kind of
/// value. Runs between preprocessing (all records have their final IDs and parents) and writing; the mapping must have
/// kept the source's values.
void applyCorrections(MPPProject& project);

} // namespace brackwater
