#pragma once

namespace brackwater {

struct MPPProject;

/// Makes each key of custom fields one text field of all tasks, or of all resources, with one alias. The format has
/// thirty: keys beyond them are left out. Aliases longer than planners take are cut.
void numberCustomFields(MPPProject& project);

} // namespace brackwater
