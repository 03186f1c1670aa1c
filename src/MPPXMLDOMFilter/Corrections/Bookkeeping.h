#pragma once

namespace brackwater {

struct MPPProject;

/// Keeps the numbers that a file holds about itself in step with its rows, as in all real files: numbers of rows and of
/// their elements, sizes, and the calendars that the resources' rows name.
void keepBookkeeping(MPPProject& project);

/// Takes the views, tables and entry lists from the template, whose other streams count them. The exact export's
/// minimum breaks those counts, and its view is of no known kind.
void keepTemplateViews(MPPProject& project);

} // namespace brackwater
