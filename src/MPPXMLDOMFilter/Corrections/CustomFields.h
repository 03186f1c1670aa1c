#pragma once

namespace brackwater {

struct MPPProject;

/// Makes each key of custom fields one text field, with one alias, of all tasks or of all resources. The format has
/// thirty: further keys are left out. Truncates aliases that planners do not accept.
void numberCustomFields(MPPProject& project);

} // namespace brackwater
