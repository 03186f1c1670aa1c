#pragma once

#include "CompoundFile.h"
#include "PropertySet.h"
#include "PropsFrame.h"
#include "Recurrence.h"
#include "Values.h"

#include <array>
#include <map>

namespace brackwater::inspect {

// What a file holds, decoded. Work is in thousandths of a minute, units and money in hundredths, as in the file.

inline constexpr std::size_t kTextFields = 30;
inline constexpr std::size_t kBaselines = 11;

/// What was planned at a moment; a field that the file does not hold is absent.
struct Baseline {
    std::optional<Date> start, finish;
    std::optional<Duration> duration;
    std::optional<double> work, cost, fixedCost;
    [[nodiscard]] bool isEmpty() const { return !start && !finish && !duration && !work && !cost && !fixedCost; }
};

/// Work that goes on evenly for a while; a gap where there is none.
struct WorkPhase {
    double work = 0;         ///< of this phase alone
    std::int64_t tenths = 0; ///< working time that it takes, in tenths of a minute
    double units = 0;        ///< hundredths of a per cent
};

/// A stretch of time without an interruption.
struct Piece {
    Date start, finish;
};

/// Texts of custom fields by their position, from 1.
using TextFields = std::map<std::size_t, std::string>;

struct Task {
    std::size_t row = 0; ///< in the storage
    std::uint32_t uniqueId = 0, id = 0;
    std::optional<std::uint32_t> parentId; ///< none for the project
    std::uint16_t outlineLevel = 0;        ///< as the row tells it
    int depth = 0;                         ///< as the parents tell it
    std::string title, notes;
    std::optional<Date> start, finish, earlyStart, earlyFinish, lateStart, lateFinish;
    std::optional<Date> actualStart, actualFinish, constraintDate, deadline, created, stop, resume;
    Duration duration, actualDuration, remainingDuration;
    std::uint16_t constraintType = 0, priority = 0, type = 0, percentComplete = 0, percentWorkComplete = 0;
    std::int32_t calendarId = -1;
    double work = 0, actualWork = 0, remainingWork = 0;
    double cost = 0, fixedCost = 0, actualCost = 0, remainingCost = 0;
    bool milestone = false, effortDriven = false, ignoresResourceCalendars = false;
    bool summary = false;      ///< whether tasks stand below it
    std::vector<Piece> pieces; ///< in which its assignments are worked on; more than one where it is split
    std::map<std::size_t, Baseline> baselines; ///< by number, from 0
    TextFields texts;
    std::optional<Guid> guid, parentGuid;
    std::optional<double> placeInSheet;
};

enum class ResourceKind { Work, Material, Cost };
/// "work", "material", "cost"
[[nodiscard]] std::string kindText(ResourceKind kind);

struct Resource {
    std::size_t row = 0;
    std::uint32_t uniqueId = 0, id = 0;
    ResourceKind kind = ResourceKind::Work;
    std::string name, initials, group, code, email, notes;
    std::string materialLabel; ///< what a material is counted in
    double standardRate = 0, overtimeRate = 0, costPerUse = 0, maximumUnits = 0;
    std::uint16_t standardRateUnits = 0, overtimeRateUnits = 0, accrual = 0;
    std::optional<Date> availableFrom, availableTo;
    double work = 0, actualWork = 0, remainingWork = 0, cost = 0, actualCost = 0, remainingCost = 0;
    std::map<std::size_t, Baseline> baselines;
    TextFields texts;
    std::optional<Guid> guid;
    std::optional<double> placeInSheet;
    std::optional<std::uint32_t> calendarId; ///< of the calendar that names this resource
};

struct Assignment {
    std::size_t row = 0;
    std::uint32_t id = 0, taskId = 0;
    std::optional<std::uint32_t> resourceId; ///< none for work without a resource
    std::optional<Date> start, finish, resume, stop, created;
    Duration delay;
    double units = 0, work = 0, actualWork = 0, regularWork = 0, remainingWork = 0;
    double cost = 0, actualCost = 0, remainingCost = 0;
    std::map<std::size_t, Baseline> baselines;
    std::string notes;
    std::optional<std::size_t> plannedPhases, completePhases; ///< entries of the timephased blocks
    std::vector<WorkPhase> remaining, complete;               ///< from "resume" and from "start" on
    std::uint16_t contour = 0;
    std::vector<Piece> pieces; ///< more than one where the work is interrupted
    std::optional<Guid> guid, taskGuid, resourceGuid;
};

struct Link {
    std::size_t row = 0;
    std::uint32_t id = 0, predecessor = 0, successor = 0;
    std::uint16_t type = 0;
    Duration lag;
    std::optional<Guid> guid;
};

struct TimeRange {
    std::uint32_t start = 0, end = 0; ///< tenths of a minute since midnight
};
/// Absent: the day is inherited. Empty: nobody works.
using DayRanges = std::optional<std::vector<TimeRange>>;
using Week = std::array<DayRanges, 7>; ///< Sunday first

struct CalendarException {
    std::uint16_t firstDay = 0, lastDay = 0;
    std::vector<TimeRange> ranges;
    std::string name;
    std::optional<Recurrence> recurrence = std::nullopt; ///< none: every day from the first to the last
};

/// A run of days, both included.
struct DaySpan {
    int first = 0, last = 0;
};

struct WorkWeek {
    std::uint16_t firstDay = 0, lastDay = 0;
    Week week;
    std::string name;
};

struct Calendar {
    std::size_t row = 0;
    std::uint32_t id = 0;
    std::optional<std::uint32_t> baseId, resourceId;
    std::string name;
    bool hasOwnHours = false; ///< whether the file holds a block of working times for it
    Week week;
    std::vector<CalendarException> exceptions;
    std::vector<WorkWeek> workWeeks;
    std::optional<Guid> guid;
};

/// A decoded property of the project.
struct ProjectProperty {
    std::uint32_t type = 0;
    std::string name; ///< empty where the meaning is unknown
    std::string value;
};

/// A whole file.
struct ProjectFile {
    std::vector<EntryInfo> entries;
    std::vector<std::string> compObj; ///< texts of "\x01CompObj"
    std::string folder;               ///< "   112" or "   114"; empty without one
    std::vector<SummaryValue> summary, documentSummary;
    std::vector<ProjectProperty> properties;
    WorkingUnits units;
    std::vector<Task> tasks; ///< the project's own row first, where it has one
    std::size_t blankTaskRows = 0;
    std::vector<Resource> resources;
    std::vector<Assignment> assignments;
    std::vector<Link> links;
    std::vector<Calendar> calendars;
    std::map<std::size_t, std::string> taskTextNames, resourceTextNames; ///< names of text fields by position
    Complaints complaints;
};

/// What kind of file of Microsoft Project this is when it is of another format than that of 2007, for a sentence of the
/// form "... is ..."; empty otherwise.
[[nodiscard]] std::string otherFormat(const ProjectFile& project);

/// How much of a file is decoded.
enum class Extent {
    All,
    Plan, ///< without the list of entries and the properties of unknown meaning, which only people look at
};

/// Decodes a file; what cannot be read is left out with a complaint.
[[nodiscard]] ProjectFile decode(const CompoundFile& file, Extent extent = Extent::All);

} // namespace brackwater::inspect
