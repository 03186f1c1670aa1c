#include "MPPXMLDOMFilter/Streams/MPP12AssignmentWriter.h"

#include "MPPXMLDOMFilter/Streams/FieldMapRows.h"
#include "MPPXMLDOMFilter/Streams/IndexRecord.h"
#include "MPPXMLDOMFilter/Streams/PlannedWork.h"
#include "MPPXMLDOMFilter/Streams/RecordValues.h"
#include "MPPXMLDOMFilter/Streams/RowBuilder.h"
#include "MPPXMLDOMFilter/Streams/StorageElements.h"
#include "Platform/Log/Log.h"

#include <algorithm>
#include <array>
#include <bit>

namespace brackwater {

namespace {

constexpr std::string_view kTooManyBaselines = "It is not permitted to write more than 10 baselines";

constexpr std::uint16_t kDescriptionEnding = 3904; // 0x0F40
constexpr std::size_t kFixedRowSize = 142;
constexpr std::size_t kFixed2RowSize = 48;
using AssignmentRecord = IndexRecord<34>;
using SecondAssignmentRecord = IndexRecord<53, AssignmentRow::SecondBlock>;

// Types of elements in "Var2Data".
constexpr std::uint64_t kPlannedWorkType = 49;
constexpr std::uint64_t kCompleteWorkType = 50;
constexpr std::uint64_t kNotesType = 71;
constexpr std::uint64_t kMomentOfWritingType = 634;
constexpr std::uint64_t kType665 = 665; // meaning unknown: 16 zero bytes, as 667
constexpr std::uint64_t kType667 = 667;
constexpr std::size_t kMaxBaselines = 10;
constexpr std::array<std::uint16_t, kMaxBaselines> kBaselineWorkTypes = {289, 298, 307, 316, 325,
                                                                         334, 343, 352, 361, 370};
constexpr std::array<std::uint16_t, kMaxBaselines> kBaselineStartTypes = {295, 304, 313, 322, 331,
                                                                          340, 349, 358, 367, 376};
constexpr std::array<std::uint16_t, kMaxBaselines> kBaselineFinishTypes = {296, 305, 314, 323, 332,
                                                                           341, 350, 359, 368, 377};

// What stands for the resource of work without one. The GUID differs from the default resource's in its first byte.
constexpr std::uint32_t kNoResourceID = 0xFFFF0001;
constexpr Guid kNoResourceGuid{
    Guid::Bytes{0x78, 0x8B, 0xCB, 0xA0, 0x8C, 0x2A, 0x6D, 0x43, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xFF}};

std::uint16_t baselineType(const std::array<std::uint16_t, kMaxBaselines>& types, std::size_t index) {
    if (index < 1 || index > types.size())
        throw Exception(kTooManyBaselinesException, std::string(kTooManyBaselines));
    return types[index - 1];
}

// An assignment without a first baseline shows no work and no dates.
MPPAssignmentBaseline firstBaselineOf(const MPPAssignment& assignment) {
    return assignment.baseline0 ? *assignment.baseline0 : MPPAssignmentBaseline{};
}

const MPPTask& taskOf(const MPPAssignment& assignment) {
    const MPPTask* task = assignment.task.record();
    assertThat(task != nullptr, "Assignment {} has no task.", assignment.ID);
    return *task;
}

} // namespace

std::uint16_t MPP12AssignmentWriter::getaselineWorkTypeForIndex(std::size_t index) {
    return baselineType(kBaselineWorkTypes, index);
}

std::uint16_t MPP12AssignmentWriter::getaselineStartTypeForIndex(std::size_t index) {
    return baselineType(kBaselineStartTypes, index);
}

std::uint16_t MPP12AssignmentWriter::getaselineFinishTypeForIndex(std::size_t index) {
    return baselineType(kBaselineFinishTypes, index);
}

RowStorageLayout MPP12AssignmentWriter::layout() const {
    return {.kind = MPPRowKind::Assignment, .descriptionEnding = kDescriptionEnding};
}

// "Var2Data" and its index, in the same order: an element is found by its place, not by its type.

template <typename Visitor>
void MPP12AssignmentWriter::visitElements(const MPPAssignment& assignment, Visitor& element) {
    element(kPlannedWorkType, [&](MPPData& data) { writePlannedWork(data, assignment); });
    if (hasCompleteWork(assignment))
        element(kCompleteWorkType, [&](MPPData& data) { writeCompleteWork(data, assignment); });
    if (hasText(assignment.notes))
        element(kNotesType, [&](MPPData& data) { data.writeRtfString(*assignment.notes, MPPEncoding::ASCII); });
    for (std::size_t i = 0; i < assignment.baselines.size(); ++i) {
        const MPPAssignmentBaseline& baseline = *assignment.baselines[i];
        element(getaselineWorkTypeForIndex(i + 1), real(thousandthsOfMinute(baseline.work)));
        element(getaselineStartTypeForIndex(i + 1), date(baseline.start, _dates));
        element(getaselineFinishTypeForIndex(i + 1), date(baseline.finish, _dates));
    }
    element(kMomentOfWritingType, [&](MPPData& data) { data.writeInteger(_momentOfWriting.bytes); });
    element(kType665, zeroes(16));
    element(kType667, zeroes(16));
}

void MPP12AssignmentWriter::writeVar2Data(StreamOutput& stream) {
    _momentOfWriting = _dates(Date::now());
    ElementPayloads payloads(var2Data());
    stream.writeEach(project().assignments,
                     [&](const MPPAssignment& assignment) { visitElements(assignment, payloads); });
}

void MPP12AssignmentWriter::writeVarMeta(MPP12VarMeta& varMeta, StreamOutput& stream) {
    stream.writeEach(project().assignments, [&](const MPPAssignment& assignment) {
        ElementRecords records(varMeta, assignment.ID);
        visitElements(assignment, records);
    });
}

// "FixedData" and its index: a row for each ID up to the last. After preprocessing every ID has its assignment.

std::uint64_t MPP12AssignmentWriter::lastID() const {
    return project().assignments.empty() ? 0 : project().assignments.back()->ID;
}

const MPPAssignment* MPP12AssignmentWriter::assignmentWithID(std::uint64_t id) const {
    const auto& assignments = project().assignments;
    if (id <= assignments.size() && assignments[id - 1]->ID == id) // always so after preprocessing
        return assignments[id - 1].get();
    const auto found = project().idToAssignmentMap().find(static_cast<std::uint32_t>(id));
    return found == project().idToAssignmentMap().end() ? nullptr : found->second;
}

void MPP12AssignmentWriter::writeFixedData(StreamOutput& stream) {
    const std::uint64_t last = lastID();
    for (std::uint64_t id = 1; id <= last; ++id) {
        if (const MPPAssignment* assignment = assignmentWithID(id))
            writeAssignmentFixedData(*assignment);
        else
            writeHoleFixedData(id);
        stream.flush();
    }
}

void MPP12AssignmentWriter::writeHoleFixedData(std::uint64_t id) {
    RowBuilder<kFixedRowSize> row;
    row.at(0).lowInteger(id);
    row.at(4).zeroes(138);
    row.endElement(fixedData());
}

namespace {

// Units and work of a row, as the kind of resource shows them. Work is in thousandths of a minute.
struct Amounts {
    double units;
    double work;
    double actualWork;
    double remainingWork;
};

Amounts amountsOfWork(const MPPAssignment& assignment) {
    return {assignment.assignmentUnits, thousandthsOfMinute(assignment.work),
            thousandthsOfMinute(assignment.actualWork), thousandthsOfMinute(assignment.remainingWork)};
}

// Material and cost: the units are the quantity, and the part of the work that is done is the part that is used.
Amounts amountsOfMaterial(const MPPAssignment& assignment) {
    const double units = assignment.assignmentUnits / 10000.0;
    const double quantity = thousandthsOfMinute(units);
    const double done = assignment.work == 0 ? 0.0 : (assignment.work - assignment.remainingWork) / assignment.work;
    return {units * assignment.unitOfMaterial, quantity, done * quantity, (1.0 - done) * quantity};
}

} // namespace

void MPP12AssignmentWriter::logAssignment(const MPPAssignment& assignment) {
    _logLine = "+++ curAssignment: ";
    assignment.appendDescriptionTo(_logLine);
    _logLine += ", work: ";
    _logLine += loggedWork(assignment.work);
    _logLine += " resource: ";
    _logLine += loggedResource(assignment.resource.record());
    logLine(_logLine);
}

const std::string& MPP12AssignmentWriter::loggedWork(double work) {
    const auto bits = std::bit_cast<std::uint64_t>(work);
    if (_loggedWork.text.empty() || bits != _loggedWork.bits)
        _loggedWork = {bits, fmt::format("{:.6f}", work)};
    return _loggedWork.text;
}

const std::string& MPP12AssignmentWriter::loggedResource(const MPPResource* resource) {
    std::string& text = _loggedResources[resource];
    if (text.empty())
        text = resource ? resource->description() : "(null)";
    return text;
}

void MPP12AssignmentWriter::writeAssignmentFixedData(const MPPAssignment& assignment) {
    logAssignment(assignment);
    const MPPResource* resource = assignment.resource.record();
    const bool isMaterial = resource && resource->getResourceType() != 0;
    const Amounts amounts = isMaterial ? amountsOfMaterial(assignment) : amountsOfWork(assignment);
    const MPPAssignmentBaseline baseline = firstBaselineOf(assignment);

    RowBuilder<kFixedRowSize> row;
    row.at(0).lowInteger(assignment.ID);
    row.at(4).lowInteger(taskOf(assignment).ID);
    row.at(8).lowInteger(resource ? resource->ID : kNoResourceID);
    row.at(12).date(_dates(assignment.startDate));
    row.at(16).date(_dates(assignment.finishDate));
    row.at(20).date(_dates(assignment.resumeDate));
    row.at(24).word(assignment.getDelay());
    row.at(26).integer(0x00070000);
    row.at(30).zeroes(6);
    row.at(36).date(_dates(baseline.start));
    row.at(40).date(_dates(baseline.finish));
    row.at(44).date(_dates(assignment.stopDate));
    row.at(48).integer(assignment.row48);
    row.at(52).word(0);
    row.at(54).real(amounts.units);
    row.at(62).real(amounts.work);
    row.at(70).real(amounts.actualWork);
    row.at(78).real(amounts.work); // regular work
    row.at(86).real(amounts.remainingWork);
    row.at(94).real(thousandthsOfMinute(baseline.work));
    row.at(102).real(assignment.cost);
    row.at(110).real(assignment.actualCost);
    row.at(118).real(assignment.remainingCost);
    row.at(126).real(baseline.cost);
    row.at(134).zeroes(8);
    row.endElement(fixedData());
}

namespace {

void writeHoleFixedMeta(MPPFixedMeta& fixedMeta) {
    constexpr std::uint32_t kHole = 2;
    AssignmentRecord record;
    record.bit(AssignmentRow::UniqueID);
    record.end(fixedMeta, kHole);
}

} // namespace

void MPP12AssignmentWriter::writeAssignmentFixedMeta(MPPFixedMeta& fixedMeta, const MPPAssignment& assignment) {
    ElementCount elements;
    visitElements(assignment, elements);
    const bool hasNotes = hasText(assignment.notes);
    const bool isWorkDone = assignment.actualWork > 0;
    AssignmentRecord record;
    record.bit(AssignmentRow::UniqueID);
    record.bit(AssignmentRow::Split, assignment.workOverTime && assignment.workOverTime->isSplit);
    record.bit(AssignmentRow::WorkDone, isWorkDone);
    record.bit(AssignmentRow::Finished, isWorkDone && assignment.remainingWork == 0);
    record.bit(AssignmentRow::Flag12);
    record.bit(AssignmentRow::Flag13);
    record.bit(AssignmentRow::HasNotes, hasNotes);
    record.bit(AssignmentRow::Flag20);
    record.bits(AssignmentRow::FirstField, AssignmentRow::LastField);
    record.bit(AssignmentRow::Notes, hasNotes);
    record.bit(AssignmentRow::PlannedWork);
    record.bit(AssignmentRow::CompleteWork, hasCompleteWork(assignment));
    record.end(fixedMeta, elements.count() << 16);
}

void MPP12AssignmentWriter::writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) {
    const std::uint64_t last = lastID();
    for (std::uint64_t id = 1; id <= last; ++id) {
        if (const MPPAssignment* assignment = assignmentWithID(id))
            writeAssignmentFixedMeta(fixedMeta, *assignment);
        else
            writeHoleFixedMeta(fixedMeta);
        stream.flush();
    }
}

// "Fixed2Data" and its index.

void MPP12AssignmentWriter::writeFixed2Data(StreamOutput& stream) {
    for (const auto& assignment : project().assignments) {
        const MPPResource* resource = assignment->resource.record();
        RowBuilder<kFixed2RowSize> row;
        row.at(0).guid(assignment->GUID());
        row.at(16).guid(taskOf(*assignment).GUID());
        row.at(32).guid(resource ? resource->GUID() : kNoResourceGuid);
        row.endElement(fixed2Data());
        stream.flush();
    }
}

namespace {

// The elements that exist: start, finish and work of each baseline, 634, 665 and 667.
void markElements(SecondAssignmentRecord& record, std::size_t baselines) {
    for (std::size_t i = 0; i < baselines; ++i) {
        const std::size_t baseline = AssignmentRow::Baseline1 + AssignmentRow::RowsOfBaseline * i;
        record.bits(baseline, baseline + 2);
    }
    record.bit(AssignmentRow::Element665);
    record.bit(AssignmentRow::Element667);
}

// What an exact export marks: more than there are elements, and the budgets of two baselines each in the other's place.
void markExactly(SecondAssignmentRecord& record, std::size_t baselines) {
    for (std::size_t i = 0; i < baselines; ++i) {
        const std::size_t budget = AssignmentRow::BudgetOfBaseline1 + AssignmentRow::BudgetRowsOfBaseline * (i ^ 1);
        record.bits(budget, budget + 1);
        const std::size_t baseline = AssignmentRow::Baseline1 + AssignmentRow::RowsOfBaseline * i;
        record.bits(baseline, baseline + 6);
    }
    record.bit(AssignmentRow::Element652); // one that is never written
    record.bit(AssignmentRow::Element665);
    record.bit(AssignmentRow::Element667);
}

} // namespace

void MPP12AssignmentWriter::writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) {
    for (const auto& assignment : project().assignments) {
        SecondAssignmentRecord record;
        record.bit(AssignmentRow::SecondBlock);
        record.bit(AssignmentRow::Flag206);
        record.bits(AssignmentRow::Flag208, AssignmentRow::Flag209);
        record.bits(AssignmentRow::TaskGuid, AssignmentRow::ResourceGuid);
        record.bit(AssignmentRow::MomentOfWriting);
        if (marksElementsOnly())
            markElements(record, assignment->baselines.size());
        else
            markExactly(record, assignment->baselines.size());
        record.end(fixed2Meta, 0);
        stream.flush();
    }
}

void MPP12AssignmentWriter::preprocessProject(MPPProject& project) {
    std::vector<std::shared_ptr<MPPAssignment>> kept;
    kept.reserve(project.assignments.size());
    for (auto& assignment : project.assignments) {
        if (assignment->task.record())
            kept.push_back(std::move(assignment));
        else
            project.keepRemovedRecord(std::move(assignment));
    }
    project.assignments = std::move(kept);

    std::stable_sort(project.assignments.begin(), project.assignments.end(),
                     [](const auto& left, const auto& right) { return left->ID < right->ID; });
    std::uint64_t nextID = 1;
    for (const auto& assignment : project.assignments) {
        assignment->ID = nextID++;
        moveFirstBaselineOut(*assignment);
    }
}

} // namespace brackwater
