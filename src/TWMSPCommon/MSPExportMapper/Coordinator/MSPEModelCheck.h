#pragma once

#include <memory>
#include <vector>

namespace brackwater {

struct MPPCalendar;
struct MPPCalendarException;
struct MPPCalendarWorkWeek;
struct MPPConstraint;
struct MPPProject;

/// Checks the whole model behind the mapping; raises at the first fault. The project's own lists hold its tasks,
/// resources and assignments.
///
/// That an object is of its kind is a matter of the types here. What can still happen is checked: an entry of a list
/// that is missing, a reference that still holds a UID, a range without its start or end.
void verifyFixedProject(const MPPProject& project, const std::vector<std::shared_ptr<MPPConstraint>>& constraints,
                        const std::vector<std::shared_ptr<MPPCalendar>>& calendars);
void verifyWorkWeek(const std::shared_ptr<MPPCalendarWorkWeek>& workWeek);
void verifyException(const std::shared_ptr<MPPCalendarException>& exception);

} // namespace brackwater
