#include "Decoders.h"
#include "WorkPhases.h"

#include <fmt/format.h>

namespace brackwater::inspect {

namespace {

constexpr RowKind kAssignments{"TBkndAssn", 0x00020017, {34, 53}, 4};

enum AssignmentField : std::uint16_t {
    kUniqueId = 0,
    kTaskId = 1,
    kResourceId = 2,
    kUnits = 7,
    kWork = 8,
    kActualWork = 10,
    kRegularWork = 11,
    kRemainingWork = 12,
    kBaselineWork = 16,
    kStart = 20,
    kFinish = 21,
    kResume = 24,
    kDelay = 25,
    kCost = 26,
    kActualCost = 28,
    kRemainingCost = 29,
    kBaselineCost = 32,
    kContoured = 40,
    kPlannedWork = 49,
    kCompleteWork = 50,
    kDelayUnits = 55,
    kNotes = 71,
    kBaselineStart = 146,
    kBaselineFinish = 147,
    kStop = 264,
    kCreated = 634,
    kGuid = 636,
    kTaskGuid = 637,
    kResourceGuid = 638,
};

const FieldNames kNames{
    {kUniqueId, "unique id"},
    {kTaskId, "task"},
    {kResourceId, "resource"},
    {kStart, "start"},
    {kFinish, "finish"},
    {kUnits, "units"},
    {kWork, "work"},
    {kActualWork, "actual work"},
    {kRemainingWork, "remaining work"},
};

// An assignment without a resource names this one.
constexpr std::uint32_t kNoResource = 0xFFFF0001;

std::map<std::size_t, Baseline> readBaselines(const RowReader& row) {
    std::map<std::size_t, Baseline> baselines;
    Baseline current;
    current.start = row.date(kBaselineStart);
    current.finish = row.date(kBaselineFinish);
    current.work = row.f64(kBaselineWork);
    current.cost = row.f64(kBaselineCost);
    if (current.start || current.finish || current.work.value_or(0) != 0 || current.cost.value_or(0) != 0)
        baselines.emplace(0, current);
    for (std::size_t n = 1; n < kBaselines; ++n) {
        const auto field = [n](std::size_t distance) {
            return static_cast<std::uint16_t>(289 + 9 * (n - 1) + distance);
        };
        Baseline baseline;
        baseline.work = row.f64(field(0));
        baseline.cost = row.f64(field(1));
        baseline.start = row.date(field(6));
        baseline.finish = row.date(field(7));
        if (!baseline.isEmpty())
            baselines.emplace(n, baseline);
    }
    return baselines;
}

// A timephased block begins with the number of its entries.
std::optional<std::size_t> entriesOf(ByteView block) {
    const auto count = block.u16(0);
    return count ? std::optional<std::size_t>(*count) : std::nullopt;
}

void readWorkOverTime(Assignment& assignment, const RowReader& row, Complaints& complaints) {
    const ByteView planned = row.bytes(kPlannedWork), done = row.bytes(kCompleteWork);
    assignment.plannedPhases = entriesOf(planned);
    assignment.completePhases = entriesOf(done);
    const std::string name = fmt::format("assignment {}", assignment.id);
    PhaseBlock remaining = remainingWork(planned, name, complaints);
    assignment.remaining = std::move(remaining.phases);
    assignment.complete = completeWork(done, name, complaints).phases;
    constexpr std::uint16_t contoured = 8;
    assignment.contour = row.flag(kContoured) ? contoured : remaining.contour;
}

Assignment readAssignment(const RowTable& table, const RawRow& raw, std::uint32_t id, Complaints& complaints) {
    const RowReader row(table, raw, id);
    Assignment assignment;
    assignment.row = raw.number;
    assignment.id = id;
    assignment.taskId = row.u32(kTaskId).value_or(0);
    assignment.resourceId = row.u32(kResourceId);
    if (assignment.resourceId == kNoResource)
        assignment.resourceId.reset();
    assignment.start = row.date(kStart);
    assignment.finish = row.date(kFinish);
    assignment.resume = row.date(kResume);
    assignment.stop = row.date(kStop);
    assignment.created = row.date(kCreated);
    assignment.delay = row.duration(kDelay, kDelayUnits).value_or(Duration{});
    assignment.units = row.f64(kUnits).value_or(0);
    assignment.work = row.f64(kWork).value_or(0);
    assignment.actualWork = row.f64(kActualWork).value_or(0);
    assignment.regularWork = row.f64(kRegularWork).value_or(0);
    assignment.remainingWork = row.f64(kRemainingWork).value_or(0);
    assignment.cost = row.f64(kCost).value_or(0);
    assignment.actualCost = row.f64(kActualCost).value_or(0);
    assignment.remainingCost = row.f64(kRemainingCost).value_or(0);
    assignment.baselines = readBaselines(row);
    assignment.notes = row.note(kNotes);
    readWorkOverTime(assignment, row, complaints);
    assignment.guid = row.guid(kGuid);
    assignment.taskGuid = row.guid(kTaskGuid);
    assignment.resourceGuid = row.guid(kResourceGuid);
    return assignment;
}

template <typename Record>
std::map<std::uint32_t, const Record*> byUniqueId(const std::vector<Record>& records) {
    std::map<std::uint32_t, const Record*> index;
    for (const Record& record : records)
        index.try_emplace(record.uniqueId, &record);
    return index;
}

// Whether what an assignment names is there, and the GUIDs say the same as the ids.
void checkReferences(const ProjectFile& project, Complaints& complaints) {
    const auto tasks = byUniqueId(project.tasks);
    const auto resources = byUniqueId(project.resources);
    for (const Assignment& assignment : project.assignments) {
        const std::string name = fmt::format("assignment {}", assignment.id);
        const auto task = tasks.find(assignment.taskId);
        if (task == tasks.end())
            complaints.add(kAssignments.storage, "an assignment's task is missing: readers drop it", name);
        else if (assignment.taskGuid && task->second->guid && *assignment.taskGuid != *task->second->guid)
            complaints.add(kAssignments.storage, "the GUID of the task is not the task's", name);
        if (!assignment.resourceId)
            continue;
        const auto resource = resources.find(*assignment.resourceId);
        if (resource == resources.end())
            complaints.add(kAssignments.storage, "an assignment's resource is missing", name);
        else if (assignment.resourceGuid && resource->second->guid &&
                 *assignment.resourceGuid != *resource->second->guid)
            complaints.add(kAssignments.storage, "the GUID of the resource is not the resource's", name);
    }
}

} // namespace

void decodeAssignments(const DecodeContext& context) {
    const RowStreams streams = readStreams(context, kAssignments.storage);
    const RowTable table = readTable(context, kAssignments, streams);
    Complaints& complaints = context.complaints();
    checkMap(table, kNames, {}, complaints);
    std::vector<Assignment>& assignments = context.out.assignments;
    for (const RawRow& raw : table.rows) {
        // Readers take only records whose first byte is 0.
        if ((raw.marks & 0xFF) != 0 || raw.first.empty() || !fitsMap(table, raw, ShortRow::Kept, complaints))
            continue;
        const auto id = RowReader(table, raw).u32(kUniqueId);
        if (!id)
            continue;
        if (table.var.elementsOf(*id).empty())
            complaints.add(kAssignments.storage, "an assignment without elements in Var2Data: readers drop it",
                           rowName(raw));
        assignments.push_back(readAssignment(table, raw, *id, complaints));
    }
    table.var.checkOwners(checkIds(assignments, &Assignment::id, kAssignments.storage, complaints),
                          kAssignments.storage, complaints);
    checkReferences(context.out, complaints);
    arrangePieces(context.out);
}

} // namespace brackwater::inspect
