#pragma once

namespace brackwater {

struct MPPProject;

/// Corrects values that readers would misread from the exact export, one small pass per kind of value. Runs between
/// preprocessing (all records have their final IDs and parents) and writing; the mapping must have kept the source's
/// values.
void applyCorrections(MPPProject& project);

} // namespace brackwater
