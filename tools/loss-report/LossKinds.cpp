#include "loss-report/LossKinds.h"

#include <array>

namespace brackwater::lossreport {

namespace {

constexpr std::size_t kKindCount = static_cast<std::size_t>(Kind::Unexplained) + 1;

constexpr std::array<LossKind, kKindCount> kKinds{{
    {Kind::DateRange, "date-range", "the format holds dates from 1983-12-31 to 2163-06-05 only", Occurs::Always},
    {Kind::Seconds, "seconds", "the format holds times in tenths of a minute", Occurs::Always},
    {Kind::RepeatedHour, "repeated-hour",
     "clocks were set back: the file holds the wall clock, which shows this hour twice", Occurs::Always},
    {Kind::ZoneRule, "zone-rule", "the time zone has given up daylight time since", Occurs::Always},
    {Kind::DurationRange, "duration-range", "the format holds durations of up to 68 years of working time",
     Occurs::Always},
    {Kind::WholeHours, "whole-hours", "work is written in whole hours", Occurs::InExactExports},
    {Kind::WholePercent, "whole-percent", "the format holds progress in whole percent", Occurs::Always},
    {Kind::LineEnds, "line-ends", "the field has one line: line ends become blanks", Occurs::Always},
    {Kind::CurrencyCode, "currency-code", "no currency is known by the symbol", Occurs::Always},
    {Kind::SummaryTitle, "summary-title", "the title that file managers show is written in ASCII",
     Occurs::InExactExports},
    {Kind::ScenarioLeftOut, "scenario-left-out",
     "the file holds the scenario that the front window shows and the one it compares with", Occurs::Always},
    {Kind::ScenarioName, "scenario-name", "the format has no place for the names of scenarios", Occurs::Always},
    {Kind::ProjectDates, "project-dates", "start and finish of the project are those of its tasks", Occurs::Always},
    {Kind::TopTask, "top-task", "the top task becomes the project's own row", Occurs::Always},
    {Kind::Unreached, "unreached", "no group leads to it", Occurs::Always},
    {Kind::SheetPlace, "sheet-place",
     "all tasks have the same place in the sheet: readers that go by it show another order", Occurs::InExactExports},
    {Kind::Hammock, "hammock", "the format has no hammocks: a plain task stands in its place", Occurs::Always},
    {Kind::Progress, "progress", "what was done is written as a percentage alone", Occurs::InExactExports},
    {Kind::PriorityScale, "priority-scale", "the format has priorities from 0 to 1000", Occurs::Always},
    {Kind::LeveledStart, "leveled-start", "the format has no start set by levelling", Occurs::Always},
    {Kind::ScheduleType, "schedule-type", "a task has one constraint, and another one goes first", Occurs::Always},
    {Kind::Recalculate, "recalculate", "the format has fixed units, fixed duration and fixed work only",
     Occurs::Always},
    {Kind::EffortDriven, "effort-driven", "each task is marked as effort driven", Occurs::InExactExports},
    {Kind::Constraint, "constraint", "a task has one constraint, and another one goes first", Occurs::Always},
    {Kind::Split, "split", "the task is written as one bar from start to end", Occurs::InExactExports},
    {Kind::Segment, "segment", "the format has no names and notes for the pieces of a split task", Occurs::Always},
    {Kind::IgnoredCalendar, "ignored-calendar", "each task is marked to ignore the calendars of its resources",
     Occurs::InExactExports},
    {Kind::LinkToTopTask, "link-to-top-task", "the top task is the project's own row, and readers drop links to it",
     Occurs::Always},
    {Kind::LinkLeftOut, "link-left-out", "the link has no predecessor that the file holds", Occurs::Always},
    {Kind::LinkLag, "link-lag", "the format holds lags in tenths of a minute or whole percent", Occurs::Always},
    {Kind::LinkOrigin, "link-origin", "the format does not tell such a link from an ordinary one", Occurs::Always},
    {Kind::MaterialQuantity, "material-quantity",
     "the quantity is written as a bare number, which readers take for hundredths of a per cent",
     Occurs::InExactExports},
    {Kind::BothKindsOfWork, "both-kinds-of-work",
     "staff and equipment each do the whole effort, and the format has one work for both", Occurs::Always},
    {Kind::Summary, "summary", "work and progress of a group are those of its tasks", Occurs::Always},
    {Kind::CostOfWork, "cost-of-work", "costs that follow from rates are not written", Occurs::InExactExports},
    {Kind::Equipment, "equipment", "the format does not tell equipment from staff", Occurs::Always},
    {Kind::ResourceType, "resource-type", "the format has no resources of this type", Occurs::Always},
    {Kind::GroupName, "group-name", "a group without a name gets one", Occurs::Always},
    {Kind::GroupData, "group-data", "the format has no groups of resources: only their names are kept", Occurs::Always},
    {Kind::Efficiency, "efficiency", "the format has no efficiency", Occurs::Always},
    {Kind::Week, "week", "the working times of a weekday are not written so", Occurs::InExactExports},
    {Kind::NamelessGroup, "nameless-group", "readers drop a base calendar without a name", Occurs::InExactExports},
    {Kind::HoursOff, "hours-off", "an hour off becomes a whole day off", Occurs::InExactExports},
    {Kind::Overtime, "overtime", "hours of overtime stand in place of the day's regular hours", Occurs::InExactExports},
    {Kind::ExceptionName, "exception-name", "an exception has one name, and one without gets another", Occurs::Always},
    {Kind::CalendarBase, "calendar-base", "the calendar of unassigned work hangs on no other", Occurs::InExactExports},
    {Kind::NoteEmptied, "note-emptied", "a note with a character outside ASCII is written empty",
     Occurs::InExactExports},
    {Kind::NoteParagraphs, "note-paragraphs", "the paragraphs of notes are joined", Occurs::InExactExports},
    {Kind::NoteMarkup, "note-markup", "notes are written without their formatting", Occurs::Always},
    {Kind::NoteBraces, "note-braces", "braces and backslashes of notes are taken for commands", Occurs::InExactExports},
    {Kind::FieldName, "field-name", "the value stands under another key's name", Occurs::InExactExports},
    {Kind::FieldLeftOut, "field-left-out", "the format has 30 text fields", Occurs::Always},
    {Kind::AliasCut, "alias-cut", "the format holds names of fields of up to 51 characters", Occurs::Always},
    {Kind::BaselineWork, "baseline-work", "baseline work is written in another unit", Occurs::InExactExports},
    {Kind::BaselineCost, "baseline-cost", "baseline costs are not written", Occurs::InExactExports},
    {Kind::BaselineAssignment, "baseline-assignment", "baselines of assignments are not written",
     Occurs::InExactExports},
    {Kind::BaselineResource, "baseline-resource", "baselines of resources are not written", Occurs::InExactExports},
    {Kind::BaselineOnly, "baseline-only",
     "it stands in the baseline alone, and the file holds baselines of its tasks only", Occurs::Always},
    {Kind::Unexplained, "unexplained", "the file holds another value, and no known reason accounts for it",
     Occurs::InExactExports},
}};

} // namespace

std::span<const LossKind> lossKinds() { return kKinds; }

const LossKind& lossKind(Kind kind) { return kKinds.at(static_cast<std::size_t>(kind)); }

} // namespace brackwater::lossreport
