#pragma once

#include <span>
#include <string_view>

namespace brackwater::lossreport {

/// Why a value of a document is not in the file. Each has a row in the table below and in docs/fidelity.md.
enum class Kind {
    DateRange,
    Seconds,
    RepeatedHour,
    ZoneRule,
    DurationRange,
    WholeHours,
    WholePercent,
    LineEnds,
    CurrencyCode,
    SummaryTitle,
    ScenarioLeftOut,
    ScenarioName,
    ProjectDates,
    TopTask,
    Unreached,
    SheetPlace,
    Hammock,
    Progress,
    PriorityScale,
    LeveledStart,
    ScheduleType,
    Recalculate,
    EffortDriven,
    Constraint,
    Split,
    Segment,
    IgnoredCalendar,
    LinkToTopTask,
    LinkLeftOut,
    LinkLag,
    LinkOrigin,
    MaterialQuantity,
    BothKindsOfWork,
    Summary,
    CostOfWork,
    Equipment,
    ResourceType,
    GroupName,
    GroupData,
    Efficiency,
    Week,
    NamelessGroup,
    HoursOff,
    Overtime,
    ExceptionName,
    CalendarBase,
    NoteEmptied,
    NoteParagraphs,
    NoteMarkup,
    NoteBraces,
    FieldName,
    FieldLeftOut,
    AliasCut,
    BaselineWork,
    BaselineCost,
    BaselineAssignment,
    BaselineResource,
    BaselineOnly,
    Unexplained,
};

/// Which exports have a kind of loss.
enum class Occurs {
    Always,         ///< the format has no place for the value, or no export writes it
    InExactExports, ///< a corrected export writes the value
};

struct LossKind {
    Kind kind;
    std::string_view id;  ///< in reports and in docs/fidelity.md
    std::string_view why; ///< a sentence for the planner
    Occurs occurs;
};

/// All kinds, in the order of the enumeration.
[[nodiscard]] std::span<const LossKind> lossKinds();
[[nodiscard]] const LossKind& lossKind(Kind kind);

} // namespace brackwater::lossreport
