#include "Decoders.h"

#include <fmt/format.h>

#include <array>

namespace brackwater::inspect {

namespace {

constexpr RowKind kTasks{"TBkndTask", 0x00020014, {47, 86}, 1};
constexpr std::size_t kHeaderRows = 3, kBlankRowSize = 16;

enum TaskField : std::uint16_t {
    kWork = 0,
    kBaselineWork = 1,
    kActualWork = 2,
    kRemainingWork = 4,
    kCost = 5,
    kBaselineCost = 6,
    kActualCost = 7,
    kFixedCost = 8,
    kRemainingCost = 10,
    kTitle = 14,
    kNotes = 15,
    kConstraintType = 17,
    kConstraintDate = 18,
    kId = 23,
    kMilestone = 24,
    kPriority = 25,
    kBaselineDuration = 27,
    kActualDuration = 28,
    kDuration = 29,
    kRemainingDuration = 31,
    kPercentComplete = 32,
    kPercentWorkComplete = 33,
    kStart = 35,
    kFinish = 36,
    kEarlyStart = 37,
    kEarlyFinish = 38,
    kLateStart = 39,
    kLateFinish = 40,
    kActualStart = 41,
    kActualFinish = 42,
    kBaselineStart = 43,
    kBaselineFinish = 44,
    kUniqueId = 86,
    kCreated = 93,
    kResume = 99,
    kStop = 100,
    kType = 128,
    kEffortDriven = 132,
    kParentId = 160,
    kBaselineUnits = 179,
    kDurationUnits = 181,
    kOutlineLevel = 249,
    kIgnoresResourceCalendars = 399,
    kCalendarId = 401,
    kDeadline = 437,
    kBaselineFixedCost = 480,
    kGuid = 1143,
    kPlaceInSheet = 1145,
    kParentGuid = 1151,
};

const FieldNames kNames{
    {kWork, "work"},           {kCost, "cost"},
    {kTitle, "title"},         {kNotes, "notes"},
    {kStart, "start"},         {kFinish, "finish"},
    {kDuration, "duration"},   {kDurationUnits, "duration units"},
    {kParentId, "parent"},     {kOutlineLevel, "outline level"},
    {kUniqueId, "unique id"},  {kId, "id"},
    {kMilestone, "milestone"}, {kEffortDriven, "effort driven"},
    {kPriority, "priority"},   {kConstraintType, "constraint type"},
};
// Readers look at byte 8, bit 5 and at byte 11, bit 4 of the record; bits count from byte 8.
const std::map<std::uint16_t, std::size_t> kFlagBits{{kMilestone, 5}, {kEffortDriven, 28}};

constexpr std::array<std::uint16_t, kTextFields> kTexts{51,  54,  57,  60,  63,  66,  67,  68,  69,  70,
                                                        317, 318, 319, 320, 321, 322, 323, 324, 325, 326,
                                                        327, 328, 329, 330, 331, 332, 333, 334, 335, 336};

// First fields of the baselines 1 to 10; the others follow at fixed distances.
constexpr std::array<std::uint16_t, kBaselines - 1> kBaselineStarts{482, 493, 504, 515, 526, 544, 555, 566, 577, 588};

std::map<std::size_t, Baseline> readBaselines(const RowReader& row) {
    std::map<std::size_t, Baseline> baselines;
    Baseline current{.start = row.date(kBaselineStart),
                     .finish = row.date(kBaselineFinish),
                     .duration = row.duration(kBaselineDuration, kBaselineUnits),
                     .work = row.f64(kBaselineWork),
                     .cost = row.f64(kBaselineCost),
                     .fixedCost = row.f64(kBaselineFixedCost)};
    // A task that was never in the baseline has the fields of its fixed rows, all zero.
    const auto isSome = [](const std::optional<double>& value) { return value.value_or(0) != 0; };
    if (current.start || current.finish || (current.duration && current.duration->tenths != 0) ||
        isSome(current.work) || isSome(current.cost) || isSome(current.fixedCost))
        baselines.emplace(0, current);
    for (std::size_t i = 0; i < kBaselineStarts.size(); ++i) {
        const auto field = [base = kBaselineStarts.at(i)](int distance) {
            return static_cast<std::uint16_t>(base + distance);
        };
        const Baseline baseline{.start = row.date(field(0)),
                                .finish = row.date(field(1)),
                                .duration = row.duration(field(5), field(6)),
                                .work = row.f64(field(3)),
                                .cost = row.f64(field(2)),
                                .fixedCost = row.f64(field(7))};
        if (!baseline.isEmpty())
            baselines.emplace(i + 1, baseline);
    }
    return baselines;
}

void readDates(Task& task, const RowReader& row) {
    task.start = row.date(kStart);
    task.finish = row.date(kFinish);
    task.earlyStart = row.date(kEarlyStart);
    task.earlyFinish = row.date(kEarlyFinish);
    task.lateStart = row.date(kLateStart);
    task.lateFinish = row.date(kLateFinish);
    task.actualStart = row.date(kActualStart);
    task.actualFinish = row.date(kActualFinish);
    task.constraintDate = row.date(kConstraintDate);
    task.deadline = row.date(kDeadline);
    task.created = row.date(kCreated);
    task.stop = row.date(kStop);
    task.resume = row.date(kResume);
}

void readNumbers(Task& task, const RowReader& row) {
    task.duration = row.duration(kDuration, kDurationUnits).value_or(Duration{});
    task.actualDuration = row.duration(kActualDuration, kDurationUnits).value_or(Duration{});
    task.remainingDuration = row.duration(kRemainingDuration, kDurationUnits).value_or(Duration{});
    task.constraintType = row.u16(kConstraintType).value_or(0);
    task.priority = row.u16(kPriority).value_or(0);
    task.type = row.u16(kType).value_or(0);
    task.percentComplete = row.u16(kPercentComplete).value_or(0);
    task.percentWorkComplete = row.u16(kPercentWorkComplete).value_or(0);
    task.calendarId = row.bytes(kCalendarId).i32(0).value_or(-1);
    task.work = row.f64(kWork).value_or(0);
    task.actualWork = row.f64(kActualWork).value_or(0);
    task.remainingWork = row.f64(kRemainingWork).value_or(0);
    task.cost = row.f64(kCost).value_or(0);
    task.fixedCost = row.f64(kFixedCost).value_or(0);
    task.actualCost = row.f64(kActualCost).value_or(0);
    task.remainingCost = row.f64(kRemainingCost).value_or(0);
}

Task readTask(const RowTable& table, const RawRow& raw, std::uint32_t uniqueId) {
    const RowReader row(table, raw, uniqueId);
    Task task;
    task.row = raw.number;
    task.uniqueId = uniqueId;
    task.id = row.u32(kId).value_or(0);
    constexpr std::uint32_t noParent = 0xFFFFFFFF;
    task.parentId = row.u32(kParentId);
    if (task.parentId == noParent)
        task.parentId.reset();
    task.outlineLevel = row.u16(kOutlineLevel).value_or(0);
    task.title = row.text(kTitle);
    task.notes = row.note(kNotes);
    readDates(task, row);
    readNumbers(task, row);
    task.milestone = row.flag(kMilestone);
    task.effortDriven = row.flag(kEffortDriven);
    task.ignoresResourceCalendars = row.flag(kIgnoresResourceCalendars);
    task.baselines = readBaselines(row);
    task.texts = readTexts(row, kTexts);
    task.guid = row.guid(kGuid);
    task.parentGuid = row.guid(kParentGuid);
    task.placeInSheet = row.f64(kPlaceInSheet);
    return task;
}

// A reader that orders rows by their place in the sheet shows another outline when places repeat.
void checkPlaces(const std::vector<Task>& tasks, Complaints& complaints) {
    std::map<double, std::size_t> counts;
    for (const Task& task : tasks)
        if (task.placeInSheet && *task.placeInSheet == *task.placeInSheet)
            ++counts[*task.placeInSheet];
    for (const auto& [place, count] : counts)
        if (count > 1)
            complaints.add(kTasks.storage, "places in the sheet repeat: readers that go by them show another order",
                           fmt::format("{} rows at {}", count, numberText(place)));
}

void checkParents(const std::vector<Task>& tasks, Complaints& complaints) {
    std::map<std::uint32_t, Guid> guids;
    for (const Task& task : tasks)
        if (task.guid)
            guids.try_emplace(task.uniqueId, *task.guid);
    for (const Task& task : tasks) {
        const auto parent = task.parentId ? guids.find(*task.parentId) : guids.end();
        if (parent != guids.end() && task.parentGuid && *task.parentGuid != parent->second)
            complaints.add(kTasks.storage, "the GUID of the parent is not the parent's",
                           fmt::format("task {}", task.uniqueId));
    }
}

} // namespace

void decodeTasks(const DecodeContext& context) {
    const RowStreams streams = readStreams(context, kTasks.storage);
    const RowTable table = readTable(context, kTasks, streams);
    Complaints& complaints = context.complaints();
    checkMap(table, kNames, kFlagBits, complaints);
    std::vector<Task>& tasks = context.out.tasks;
    for (const RawRow& raw : table.rows) {
        if (raw.number < kHeaderRows && !isHeaderRow(raw))
            complaints.add(kTasks.storage, "a row among the first three, which readers skip as header rows",
                           rowName(raw));
        if (raw.number < kHeaderRows || isDeleted(raw) || raw.first.empty())
            continue;
        if (raw.first.size() == kBlankRowSize) {
            ++context.out.blankTaskRows;
            continue;
        }
        // The project's own row is short in some real files, and kept by all readers.
        const auto uniqueId = RowReader(table, raw).u32(kUniqueId);
        const ShortRow ifShort = uniqueId == 0U ? ShortRow::Kept : ShortRow::Dropped;
        if (fitsMap(table, raw, ifShort, complaints) && uniqueId)
            tasks.push_back(readTask(table, raw, *uniqueId));
    }
    table.var.checkOwners(checkIds(tasks, &Task::uniqueId, kTasks.storage, complaints), kTasks.storage, complaints);
    arrangeOutline(tasks, complaints);
    checkPlaces(tasks, complaints);
    checkParents(tasks, complaints);
    context.out.taskTextNames = readTextNames(streams, kTasks.storage, kTexts, complaints);
}

} // namespace brackwater::inspect
