#pragma once

namespace brackwater {

struct MPPProject;

/// Turns the definitions and values of custom fields, as the mapping found them, into the project's two lists of names
/// and the values of its tasks and resources. The lists of names are no sets: they have one alias for each value in the
/// document, in the order of the values. Raises where a definition lacks its alias or a value its field.
void resolveCustomFields(MPPProject& project);

} // namespace brackwater
