#pragma once

#include <memory>
#include <vector>

namespace brackwater {

struct MPPCalendar;
struct MPPCalendarException;
struct MPPCalendarWorkWeek;
struct MPPConstraint;
struct MPPProject;

/// Checks the whole model after the mapping; raises at the first error. The project's own lists hold its tasks,
/// resources and assignments.
///
/// The compiler checks the kinds of objects. This checks what can still go wrong: missing list entries, references that
/// still hold a UID, ranges without start or end.
void verifyFixedProject(const MPPProject& project, const std::vector<std::shared_ptr<MPPConstraint>>& constraints,
                        const std::vector<std::shared_ptr<MPPCalendar>>& calendars);
void verifyWorkWeek(const std::shared_ptr<MPPCalendarWorkWeek>& workWeek);
void verifyException(const std::shared_ptr<MPPCalendarException>& exception);

} // namespace brackwater
