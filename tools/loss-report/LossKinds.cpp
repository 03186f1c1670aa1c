#include "loss-report/LossKinds.h"

#include <array>

namespace brackwater::lossreport {

namespace {

constexpr std::size_t kKindCount = static_cast<std::size_t>(Kind::Unexplained) + 1;

constexpr std::array<LossKind, kKindCount> kKinds{{
    {Kind::DateRange, "date-range", "the format stores dates from 1983-12-31 to 2163-06-05 only", Occurs::Always},
    {Kind::Seconds, "seconds", "the format stores times in tenths of a minute", Occurs::Always},
    {Kind::RepeatedHour, "repeated-hour",
     "the clocks went back: the file has local time, in which this hour occurs twice", Occurs::Always},
    {Kind::ZoneRule, "zone-rule", "the time zone has abolished daylight saving time since", Occurs::Always},
    {Kind::DurationRange, "duration-range", "the format stores durations of up to 68 years of working time",
     Occurs::Always},
    {Kind::WholeHours, "whole-hours", "work is written in whole hours", Occurs::InExactExports},
    {Kind::WholePercent, "whole-percent", "the format stores progress in whole percent", Occurs::Always},
    {Kind::LineEnds, "line-ends", "the field has one line: line ends become blanks", Occurs::Always},
    {Kind::CurrencyCode, "currency-code", "the symbol belongs to no known currency", Occurs::Always},
    {Kind::SummaryTitle, "summary-title", "the title that file managers show is written only in ASCII",
     Occurs::InExactExports},
    {Kind::ScenarioLeftOut, "scenario-left-out",
     "the file has only the scenario that the front window shows and the one it compares with", Occurs::Always},
    {Kind::ScenarioName, "scenario-name", "the format has no place for the names of scenarios", Occurs::Always},
    {Kind::ProjectDates, "project-dates", "start and finish of the project are those of its tasks", Occurs::Always},
    {Kind::TopTask, "top-task", "the top task becomes the project's own row", Occurs::Always},
    {Kind::Unreached, "unreached", "no group contains it", Occurs::Always},
    {Kind::SheetPlace, "sheet-place",
     "all tasks have the same position in the sheet: readers that sort by it show another order",
     Occurs::InExactExports},
    {Kind::Hammock, "hammock", "the format has no hammocks: they become plain tasks", Occurs::Always},
    {Kind::Progress, "progress", "progress is written only as a percentage", Occurs::InExactExports},
    {Kind::PriorityScale, "priority-scale", "the format has priorities from 0 to 1000", Occurs::Always},
    {Kind::LeveledStart, "leveled-start", "the format has no start set by levelling", Occurs::Always},
    {Kind::ScheduleType, "schedule-type", "a task has one constraint, and another one takes precedence",
     Occurs::Always},
    {Kind::Recalculate, "recalculate", "the format has fixed units, fixed duration and fixed work only",
     Occurs::Always},
    {Kind::EffortDriven, "effort-driven", "every task is marked as effort driven", Occurs::InExactExports},
    {Kind::Constraint, "constraint", "a task has one constraint, and another one takes precedence", Occurs::Always},
    {Kind::Split, "split", "the task is written as one bar from start to end", Occurs::InExactExports},
    {Kind::Segment, "segment", "the format has no names and notes for the pieces of a split task", Occurs::Always},
    {Kind::IgnoredCalendar, "ignored-calendar", "every task is marked to ignore the calendars of its resources",
     Occurs::InExactExports},
    {Kind::LinkToTopTask, "link-to-top-task", "the top task is the project's own row, and readers drop links to it",
     Occurs::Always},
    {Kind::LinkLeftOut, "link-left-out", "the link's predecessor is not in the file", Occurs::Always},
    {Kind::LinkLag, "link-lag", "the format stores lags in tenths of a minute or whole percent", Occurs::Always},
    {Kind::LinkOrigin, "link-origin", "the format does not distinguish such a link from an ordinary one",
     Occurs::Always},
    {Kind::MaterialQuantity, "material-quantity",
     "the quantity is written as a plain number, which readers interpret as hundredths of a percent",
     Occurs::InExactExports},
    {Kind::BothKindsOfWork, "both-kinds-of-work",
     "staff and equipment each do the whole effort, but the format has one work value for both", Occurs::Always},
    {Kind::Summary, "summary", "work and progress of a group are those of its tasks", Occurs::Always},
    {Kind::CostOfWork, "cost-of-work", "costs calculated from rates are not written", Occurs::InExactExports},
    {Kind::Equipment, "equipment", "the format does not distinguish equipment from staff", Occurs::Always},
    {Kind::ResourceType, "resource-type", "the format has no resources of this type", Occurs::Always},
    {Kind::GroupName, "group-name", "a group without a name gets one", Occurs::Always},
    {Kind::GroupData, "group-data", "the format has no groups of resources: only their names are kept", Occurs::Always},
    {Kind::Efficiency, "efficiency", "the format has no efficiency", Occurs::Always},
    {Kind::Week, "week", "the working times of the weekday are not written", Occurs::InExactExports},
    {Kind::NamelessGroup, "nameless-group", "readers drop a base calendar without a name", Occurs::InExactExports},
    {Kind::HoursOff, "hours-off", "an hour off becomes a whole day off", Occurs::InExactExports},
    {Kind::Overtime, "overtime", "overtime replaces the day's regular hours", Occurs::InExactExports},
    {Kind::ExceptionName, "exception-name", "an exception has one name, and an unnamed one gets a default",
     Occurs::Always},
    {Kind::CalendarBase, "calendar-base", "the calendar of unassigned work has no base calendar",
     Occurs::InExactExports},
    {Kind::NoteEmptied, "note-emptied", "a note with a non-ASCII character is written empty", Occurs::InExactExports},
    {Kind::NoteParagraphs, "note-paragraphs", "the paragraphs of notes are joined", Occurs::InExactExports},
    {Kind::NoteMarkup, "note-markup", "notes are written without their formatting", Occurs::Always},
    {Kind::NoteBraces, "note-braces", "readers interpret braces and backslashes in notes as commands",
     Occurs::InExactExports},
    {Kind::FieldName, "field-name", "the value appears under another key's name", Occurs::InExactExports},
    {Kind::FieldLeftOut, "field-left-out", "the format has 30 text fields", Occurs::Always},
    {Kind::AliasCut, "alias-cut", "the format stores field names of up to 51 characters", Occurs::Always},
    {Kind::BaselineWork, "baseline-work", "baseline work is written in another unit", Occurs::InExactExports},
    {Kind::BaselineCost, "baseline-cost", "baseline costs are not written", Occurs::InExactExports},
    {Kind::BaselineAssignment, "baseline-assignment", "baselines of assignments are not written",
     Occurs::InExactExports},
    {Kind::BaselineResource, "baseline-resource", "baselines of resources are not written", Occurs::InExactExports},
    {Kind::BaselineOnly, "baseline-only",
     "it exists only in the baseline, and the file has baselines only for its own tasks", Occurs::Always},
    {Kind::Unexplained, "unexplained", "the file has another value, and no known reason explains it",
     Occurs::InExactExports},
}};

} // namespace

std::span<const LossKind> lossKinds() { return kKinds; }

const LossKind& lossKind(Kind kind) { return kKinds.at(static_cast<std::size_t>(kind)); }

} // namespace brackwater::lossreport
