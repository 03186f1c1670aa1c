#pragma once

namespace brackwater {

struct MPPProject;

/// Makes the file's own counts match its rows, as in all real files: the numbers of rows and of their elements, sizes,
/// and the calendars that resource rows refer to.
void keepBookkeeping(MPPProject& project);

/// Keeps the template's views, tables and entry lists, which the template's other streams count. The exact export's
/// minimum breaks those counts, and its view is of an unknown kind.
void keepTemplateViews(MPPProject& project);

} // namespace brackwater
