#include "loss-report/LossKinds.h"

#include <array>

namespace brackwater::lossreport {

namespace {

constexpr std::array kKinds{
    LossKind{Kind::DateRange, "date-range", "the format holds dates from 1983-12-31 to 2163-06-05 only"},
    LossKind{Kind::Seconds, "seconds", "the format holds times in tenths of a minute"},
    LossKind{Kind::RepeatedHour, "repeated-hour",
             "clocks were set back: the file holds the wall clock, which shows this hour twice"},
    LossKind{Kind::DurationRange, "duration-range", "the format holds durations of up to 68 years of working time"},
    LossKind{Kind::WholeHours, "whole-hours", "work is written in whole hours"},
    LossKind{Kind::WholePercent, "whole-percent", "the format holds progress in whole percent"},
    LossKind{Kind::LineEnds, "line-ends", "the field has one line: line ends become blanks"},
    LossKind{Kind::CurrencyCode, "currency-code", "no currency is known by the symbol"},
    LossKind{Kind::SummaryTitle, "summary-title", "the title that file managers show is written in ASCII"},
    LossKind{Kind::ScenarioLeftOut, "scenario-left-out",
             "the file holds the scenario that the front window shows and the one it compares with"},
    LossKind{Kind::ScenarioName, "scenario-name", "the format has no place for the names of scenarios"},
    LossKind{Kind::ProjectDates, "project-dates", "start and finish of the project are those of its tasks"},
    LossKind{Kind::TopTask, "top-task", "the top task becomes the project's own row"},
    LossKind{Kind::Unreached, "unreached", "no group leads to it"},
    LossKind{Kind::SheetPlace, "sheet-place",
             "all tasks have the same place in the sheet: readers that go by it show another order"},
    LossKind{Kind::Hammock, "hammock", "the format has no hammocks: a plain task stands in its place"},
    LossKind{Kind::Progress, "progress", "what was done is written as a percentage alone"},
    LossKind{Kind::PriorityScale, "priority-scale", "the format has priorities from 0 to 1000"},
    LossKind{Kind::LeveledStart, "leveled-start", "the format has no start set by levelling"},
    LossKind{Kind::ScheduleType, "schedule-type", "a task has one constraint, and another one goes first"},
    LossKind{Kind::Recalculate, "recalculate", "the format has fixed units, fixed duration and fixed work only"},
    LossKind{Kind::EffortDriven, "effort-driven", "each task is marked as effort driven"},
    LossKind{Kind::Constraint, "constraint", "a task has one constraint, and another one goes first"},
    LossKind{Kind::Split, "split", "the task is written as one bar from start to end"},
    LossKind{Kind::Segment, "segment", "the format has no names and notes for the pieces of a split task"},
    LossKind{Kind::IgnoredCalendar, "ignored-calendar", "each task is marked to ignore the calendars of its resources"},
    LossKind{Kind::LinkToTopTask, "link-to-top-task",
             "the top task is the project's own row, and readers drop links to it"},
    LossKind{Kind::LinkLeftOut, "link-left-out", "the link has no predecessor that the file holds"},
    LossKind{Kind::LinkLag, "link-lag", "the format holds lags in tenths of a minute or whole percent"},
    LossKind{Kind::LinkOrigin, "link-origin", "the format does not tell such a link from an ordinary one"},
    LossKind{Kind::MaterialQuantity, "material-quantity",
             "the quantity is written as a bare number, which readers take for hundredths of a per cent"},
    LossKind{Kind::BothKindsOfWork, "both-kinds-of-work",
             "staff and equipment each do the whole effort, and the format has one work for both"},
    LossKind{Kind::Summary, "summary", "work and progress of a group are those of its tasks"},
    LossKind{Kind::CostOfWork, "cost-of-work", "costs that follow from rates are not written"},
    LossKind{Kind::Equipment, "equipment", "the format does not tell equipment from staff"},
    LossKind{Kind::ResourceType, "resource-type", "the format has no resources of this type"},
    LossKind{Kind::GroupName, "group-name", "a group without a name gets one"},
    LossKind{Kind::GroupData, "group-data", "the format has no groups of resources: only their names are kept"},
    LossKind{Kind::Efficiency, "efficiency", "the format has no efficiency"},
    LossKind{Kind::Week, "week", "the working times of a weekday are not written so"},
    LossKind{Kind::NamelessGroup, "nameless-group", "readers drop a base calendar without a name"},
    LossKind{Kind::HoursOff, "hours-off", "an hour off becomes a whole day off"},
    LossKind{Kind::Overtime, "overtime", "hours of overtime stand in place of the day's regular hours"},
    LossKind{Kind::ExceptionName, "exception-name", "an exception has one name, and one without gets another"},
    LossKind{Kind::CalendarBase, "calendar-base", "the calendar of unassigned work hangs on no other"},
    LossKind{Kind::NoteEmptied, "note-emptied", "a note with a character outside ASCII is written empty"},
    LossKind{Kind::NoteParagraphs, "note-paragraphs", "the paragraphs of notes are joined"},
    LossKind{Kind::NoteMarkup, "note-markup", "notes are written without their formatting"},
    LossKind{Kind::NoteBraces, "note-braces", "braces and backslashes of notes are taken for commands"},
    LossKind{Kind::FieldName, "field-name", "the value stands under another key's name"},
    LossKind{Kind::FieldLeftOut, "field-left-out", "the format has 30 text fields"},
    LossKind{Kind::AliasCut, "alias-cut", "the format holds names of fields of up to 51 characters"},
    LossKind{Kind::BaselineWork, "baseline-work", "baseline work is written in another unit"},
    LossKind{Kind::BaselineCost, "baseline-cost", "baseline costs are not written"},
    LossKind{Kind::BaselineAssignment, "baseline-assignment", "baselines of assignments are not written"},
    LossKind{Kind::BaselineResource, "baseline-resource", "baselines of resources are not written"},
    LossKind{Kind::BaselineOnly, "baseline-only",
             "it stands in the baseline alone, and the file holds baselines of its tasks only"},
    LossKind{Kind::Unexplained, "unexplained", "the file holds another value, and no known reason accounts for it"},
};

} // namespace

std::span<const LossKind> lossKinds() { return kKinds; }

const LossKind& lossKind(Kind kind) { return kKinds.at(static_cast<std::size_t>(kind)); }

} // namespace brackwater::lossreport
