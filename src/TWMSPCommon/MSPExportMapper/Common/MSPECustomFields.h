#pragma once

namespace brackwater {

struct MPPProject;

/// Converts the definitions and values of custom fields from the mapping to the project's two lists of names and the
/// values of its tasks and resources. The lists of names contain duplicates: one alias per value in the document, in
/// the order of the values. Raises if a definition lacks its alias or a value its field.
void resolveCustomFields(MPPProject& project);

} // namespace brackwater
