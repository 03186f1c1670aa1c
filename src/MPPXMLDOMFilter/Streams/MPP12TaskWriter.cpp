#include "MPPXMLDOMFilter/Streams/MPP12TaskWriter.h"

#include "MPPXMLDOMFilter/Buffers/MPPProps.h"
#include "MPPXMLDOMFilter/Streams/CustomFieldProps.h"
#include "MPPXMLDOMFilter/Streams/FieldMapRows.h"
#include "MPPXMLDOMFilter/Streams/IndexRecord.h"
#include "MPPXMLDOMFilter/Streams/PlannedWork.h"
#include "MPPXMLDOMFilter/Streams/RecordValues.h"
#include "MPPXMLDOMFilter/Streams/RowBuilder.h"
#include "MPPXMLDOMFilter/Streams/StorageElements.h"
#include "MPPXMLDOMFilter/Streams/StreamOutput.h"

#include <algorithm>
#include <array>

namespace brackwater {

namespace {

constexpr std::uint16_t kDescriptionEnding = 2880; // 0x0B40
constexpr std::size_t kFixedRowSize = 264;
constexpr std::size_t kFixed2RowSize = 54;
constexpr std::size_t kLongFixed2RowSize = 80;
using TaskRecord = IndexRecord<47>;
using SecondTaskRecord = IndexRecord<86, TaskRow::SecondBlock>;

// Types of elements in "Var2Data".
constexpr std::uint16_t kTitleType = 14;
constexpr std::uint16_t kNotesType = 15;
constexpr std::uint16_t kProjectType = 1252; // meaning unknown: 1 and 1 where a project has tasks
constexpr std::uint16_t kPercentOverTimeType = 350;
constexpr std::array<std::uint16_t, 30> kTextFieldTypes = {51,  54,  57,  60,  63,  66,  67,  68,  69,  70,
                                                           317, 318, 319, 320, 321, 322, 323, 324, 325, 326,
                                                           327, 328, 329, 330, 331, 332, 333, 334, 335, 336};

constexpr std::size_t kMaxBaselines = 10;
constexpr std::array<std::uint16_t, kMaxBaselines> kBaselineTypes = {482, 493, 504, 515, 526, 544, 555, 566, 577, 588};
constexpr std::uint16_t kBaselineEnding = 53; // meaning unknown

struct TextFieldType {
    std::size_t position; ///< counted from 1
    operator std::uint64_t() const { return MPP12TaskWriter::getTextFieldTypeForIndex(position); }
};

struct BaselineType {
    std::size_t number;     ///< counted from 1
    std::uint64_t distance; ///< from the baseline's first type
    operator std::uint64_t() const {
        if (number < 1 || number > kMaxBaselines)
            throw Exception(kTooManyBaselinesException, "Limit for 10 baselines exceeded");
        return kBaselineTypes[number - 1] + distance;
    }
};

// Units of a duration.
constexpr std::uint16_t kDays = 7;
constexpr std::uint16_t kProjectUnits = 21;
constexpr std::uint16_t kEstimated = 0x20;

constexpr std::uint32_t kNoCalendarID = 0xFFFFFFFF;
constexpr double kProjectSheetPosition = 1.0;

// A task without a first baseline shows zeros and no dates.
const MPPTaskBaseline& firstBaselineOf(const MPPTask& task) {
    static const MPPTaskBaseline kNone;
    return task.baseline0 ? *task.baseline0 : kNone;
}

} // namespace

std::uint16_t MPP12TaskWriter::getTextFieldTypeForIndex(std::size_t index) {
    return typeForIndex(kTextFieldTypes, index, kUnknownTextFieldException, kTextFieldTypeUnknown);
}

RowStorageLayout MPP12TaskWriter::layout() const {
    return {.kind = MPPRowKind::Task,
            .descriptionEnding = kDescriptionEnding,
            .headerRows = {.count = 3,
                           .bit = TaskRow::Header,
                           .fixedMetaSize = TaskRecord::kSize,
                           .fixed2RowSize = hasLongFixed2Rows() ? kLongFixed2RowSize : kFixed2RowSize,
                           .fixed2MetaSize = SecondTaskRecord::kSize}};
}

// "Var2Data" and its index. The elements of a task are found by their order, not by type: a text or baseline past the
// format's limits is met when its index record is written, behind the whole of "Var2Data".

template <typename Visitor>
void MPP12TaskWriter::visitElements(const MPPTask& task, Visitor& element) {
    element(kTitleType, unicodeText(textOf(task.title)));
    if (!isProject(task) || project().rowIsATasks)
        visitElementsBehindTitle(task, element);
    if (isProject(task) && !project().tasks.empty())
        element(kProjectType, [](MPPData& data) {
            data.writeInteger(1);
            data.writeInteger(1);
        });
}

template <typename Visitor>
void MPP12TaskWriter::visitElementsBehindTitle(const MPPTask& task, Visitor& element) {
    if (hasText(task.notes))
        element(kNotesType, [&](MPPData& data) { writeNotes(data, task); });
    for (std::size_t i = 0; i < task.customFieldValues.size(); ++i)
        if (!task.customFieldValues[i].empty())
            element(TextFieldType{i + 1}, unicodeText(task.customFieldValues[i]));
    if (!task.progressPoints.empty())
        element(kPercentOverTimeType, [&](MPPData& data) { writePercentOverTime(data, task.progressPoints, _dates); });
    for (std::size_t i = 0; i < task.baselines.size(); ++i) {
        const MPPTaskBaseline& baseline = *task.baselines[i];
        const std::size_t n = i + 1;
        element(BaselineType{n, 0}, date(baseline.start, _dates));
        element(BaselineType{n, 1}, date(baseline.finish, _dates));
        element(BaselineType{n, 2}, real(baseline.cost));
        element(BaselineType{n, 3}, real(thousandthsOfMinute(baseline.work)));
        element(BaselineType{n, 5}, [&](MPPData& data) { data.writeDuration(baseline.duration, kDays); });
        element(BaselineType{n, 6}, [](MPPData& data) { data.write2ByteInteger(kBaselineEnding); });
    }
}

void MPP12TaskWriter::writeVar2Data(StreamOutput& stream) {
    ElementPayloads payloads(var2Data());
    visitElements(project(), payloads);
    stream.writeEach(project().tasks, [&](const MPPTask& task) { visitElements(task, payloads); });
}

void MPP12TaskWriter::writeVarMeta(MPP12VarMeta& varMeta, StreamOutput& stream) {
    std::uint64_t taskID = 0;
    ElementRecords projectRecords(varMeta, taskID);
    visitElements(project(), projectRecords);
    stream.writeEach(project().tasks, [&](const MPPTask& task) {
        ElementRecords records(varMeta, ++taskID);
        visitElements(task, records);
    });
}

// "FixedData" and its index.

void MPP12TaskWriter::writeFixedData(StreamOutput& stream) {
    writeTaskFixedData(project());
    stream.writeEach(project().tasks, [&](const MPPTask& task) { writeTaskFixedData(task); });
}

void MPP12TaskWriter::writeTaskFixedData(const MPPTask& task) {
    const MPPTaskBaseline& baseline = firstBaselineOf(task);
    const int unitsValue =
        (isProject(task) || task.isSummary ? kProjectUnits : kDays) | (task.estimated ? kEstimated : 0);
    const auto units = static_cast<std::uint16_t>(unitsValue);
    const EncodedDate earlyStart = _dates(task.getEarlyStart());
    const EncodedDate lateStart = _dates(task.getLateStart());
    const EncodedDate earlyFinish = _dates(task.getEarlyFinish());
    const EncodedDate lateFinish = _dates(task.getLateFinish());

    RowBuilder<kFixedRowSize> row;
    row.at(0).lowInteger(task.ID);
    row.at(4).lowInteger(task.ID);
    row.at(8).date(earlyFinish);
    row.at(12).date(lateStart);
    row.at(16).date(_dates(task.stop));
    row.at(20).date(_dates(task.resume));
    row.at(24).duration(task.getFreeSlack());
    row.at(28).duration(task.getStartSlack());
    row.at(32).duration(task.getFinishSlack());
    row.at(36).integer(task.parentTaskID());
    row.at(40).lowWord(task.outlineLevel);
    row.at(42).zeroes(18);
    row.at(60).duration(task.duration);
    row.at(64).word(units);
    row.at(66).duration(task.actualDuration);
    row.at(70).duration(task.remainingDuration);
    row.at(74).duration(baseline.duration);
    row.at(78).word(units);
    row.at(80).lowWord(static_cast<std::uint32_t>(task.constraintType));
    row.at(82).duration(task.getLevelingDelay());
    row.at(86).word(8); // units of the leveling delay: elapsed days
    row.at(88).date(earlyStart);
    row.at(92).date(earlyFinish);
    row.at(96).date(_dates(task.actualStart));
    row.at(100).date(_dates(task.getActualFinish()));
    row.at(104).date(_dates(baseline.start));
    row.at(108).date(_dates(baseline.finish));
    row.at(112).date(_dates(task.constraintDate));
    row.at(116).date(_dates(task.resume));
    row.at(120).lowWord(task.priority);
    row.at(122).lowWord(task.percentageComplete);
    row.at(124).lowWord(task.percentageWorkComplete);
    row.at(126).lowWord(static_cast<std::uint32_t>(task.taskType));
    row.at(128).word(task.getFixedCostAccrual());
    row.at(130).date(_dates(task.createDate));
    row.at(134).word(task.getRecurring() ? 1 : 0);
    row.at(136).date(_dates(task.getPreleveledStart()));
    row.at(140).date(_dates(task.getPreleveledFinish()));
    row.at(144).integer(task.percentageComplete != 0 && !task.isSummary ? 0x00009080 : 0x00000080);
    row.at(148).date(earlyStart);
    row.at(152).date(lateFinish);
    row.at(156).date(_dates(task.getSummaryProgress()));
    row.at(160).integer(isProject(task) && project().rowIsATasks ? kNoCalendarID : task.calendarID());
    row.at(164).date(_dates(task.getDeadline()));
    row.at(168).real(thousandthsOfMinute(task.work));
    row.at(176).real(thousandthsOfMinute(baseline.work));
    row.at(184).real(thousandthsOfMinute(task.actualWork));
    row.at(192).real(thousandthsOfMinute(task.remainingWork));
    row.at(200).real(task.cost);
    row.at(208).real(task.fixedCost);
    row.at(216).real(task.actualCost);
    row.at(224).real(task.remainingCost);
    row.at(232).real(baseline.cost);
    row.at(240).zeroes(16);
    row.at(256).real(baseline.fixedCost);
    row.endElement(fixedData());
}

void MPP12TaskWriter::writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) {
    writeTaskFixedMeta(project(), fixedMeta);
    stream.writeEach(project().tasks, [&](const MPPTask& task) { writeTaskFixedMeta(task, fixedMeta); });
}

namespace {

// What every record has: the fields of the row's bytes, the title, and flags.
constexpr TaskRecord kEveryTask = [] {
    TaskRecord record;
    record.bits(TaskRow::UniqueID, TaskRow::ID);
    record.bit(TaskRow::Flag9);
    record.bit(TaskRow::Flag32);
    record.bits(TaskRow::FirstField, TaskRow::LastField);
    record.bit(TaskRow::Title);
    return record;
}();

} // namespace

std::uint32_t MPP12TaskWriter::elementsOf(const MPPTask& task) {
    ElementCount elements;
    visitElements(task, elements);
    // The element that the project's row has only with tasks counts always where the file does not keep its numbers in
    // step.
    const bool countsMissing = isProject(task) && project().tasks.empty() && !project().bookkeeping;
    return elements.count() + (countsMissing ? 1 : 0);
}

void MPP12TaskWriter::writeTaskFixedMeta(const MPPTask& task, MPPFixedMeta& fixedMeta) {
    const bool isProjectRow = isProject(task);
    const bool hasNotes = hasText(task.notes);
    TaskRecord record = kEveryTask;
    record.bit(TaskRow::Milestone, task.milestone);
    record.bit(TaskRow::Critical, task.isCritical());
    record.bit(TaskRow::OfProject, isProjectRow);
    record.bit(TaskRow::Summary, isProjectRow || task.isSummary);
    record.bit(TaskRow::Marked, task.getMarked());
    record.bit(TaskRow::NotSplit, !task.getSplits());
    record.bit(TaskRow::IgnoreResourceCalendar, task.ignoreResourceCalendar);
    record.bit(TaskRow::Rollup, task.getRollup());
    record.bit(TaskRow::Flag20, isProjectRow);
    record.bit(TaskRow::HideBar, task.getHideBar());
    record.bit(TaskRow::EffortDriven, task.getEffortDriven());
    record.bit(TaskRow::Flag31, !isProjectRow);
    record.bit(TaskRow::Collapsed, !task.getExpanded());
    record.bit(TaskRow::HasNotes, hasNotes);
    record.bit(TaskRow::LevelingCanSplit, task.levelingCanSplit);
    record.bit(TaskRow::LevelAssignments, task.getLevelAssignments());
    record.bit(TaskRow::Split, task.isSplit);
    record.bit(TaskRow::Estimated, marksElementsOnly() && task.estimated);
    for (std::size_t i = 0; i < std::min(task.customFieldValues.size(), kTextFieldTypes.size()); ++i)
        record.bit(TaskRow::text(i + 1), !task.customFieldValues[i].empty());
    record.bit(TaskRow::Notes, hasNotes);
    record.bit(TaskRow::PercentOverTime, !task.progressPoints.empty());
    record.end(fixedMeta, elementsOf(task) << 16);
}

// "Fixed2Data" and its index.

void MPP12TaskWriter::writeFixed2Data(StreamOutput& stream) {
    writeTaskFixed2Data(project());
    stream.writeEach(project().tasks, [&](const MPPTask& task) { writeTaskFixed2Data(task); });
}

bool MPP12TaskWriter::hasLongFixed2Rows() const {
    return project().bookkeeping && project().bookkeeping->taskSecondRowSize == kLongFixed2RowSize;
}

void MPP12TaskWriter::writeTaskFixed2Data(const MPPTask& task) {
    if (hasLongFixed2Rows())
        writeFixed2Row<kLongFixed2RowSize>(task);
    else
        writeFixed2Row<kFixed2RowSize>(task);
}

// Long rows have 26 bytes more in the middle.
template <std::size_t Size>
void MPP12TaskWriter::writeFixed2Row(const MPPTask& task) {
    const bool isProjectRow = isProject(task);
    constexpr std::size_t kTail = Size - 14;
    RowBuilder<Size> row;
    row.at(0).guid(task.GUID());
    row.at(16).real(isProjectRow ? kProjectSheetPosition : task.sheetPosition);
    row.at(24).guid(task.parent ? task.parent->GUID() : Guid());
    if constexpr (Size == kLongFixed2RowSize) {
        row.at(40).guid(Guid());
        row.at(56).integer(0xFFFFFFFF);
        row.at(60).integer(0xFFFFFFFF);
        row.at(64).word(0);
    }
    row.at(kTail).integer(0);
    row.at(kTail + 4).integer(isProjectRow ? 0x00400003 : 0x00040003);
    row.at(kTail + 8).word(0);
    row.at(kTail + 10).date(_dates(isProjectRow ? std::nullopt : task.getEarlyStart()));
    row.endElement(fixed2Data());
}

void MPP12TaskWriter::writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) {
    writeTaskFixed2Meta(project(), fixed2Meta);
    stream.writeEach(project().tasks, [&](const MPPTask& task) { writeTaskFixed2Meta(task, fixed2Meta); });
}

void MPP12TaskWriter::writeTaskFixed2Meta(const MPPTask& task, MPPFixedMeta& fixed2Meta) const {
    const bool isLong = hasLongFixed2Rows();
    const std::size_t moreFields = isLong ? TaskRow::FieldsOfLongRows : 0;
    SecondTaskRecord record;
    record.bits(TaskRow::SecondBlock, TaskRow::LastSecondField + moreFields);
    for (std::size_t i = 0; i < std::min(task.baselines.size(), kMaxBaselines); ++i) {
        const std::size_t baseline = TaskRow::Baseline1 + moreFields + TaskRow::RowsOfBaseline * i;
        record.bits(baseline, baseline + 5);
        if (marksElementsOnly())
            continue;
        record.bit(baseline + 6);
        record.bits(baseline + 8, baseline + 9);
        const std::size_t more = TaskRow::MoreOfBaseline1 + moreFields + TaskRow::MoreRowsOfBaseline * i;
        record.bits(more, more + 4);
    }
    record.bit(isLong ? TaskRow::ProjectElementOfLongRows : TaskRow::ProjectElement, isProject(task));
    record.end(fixed2Meta, 0);
}

// "Props": the template's, unless the project names text fields.

void MPP12TaskWriter::writeProps() {
    if (project().customTaskFieldNames.empty()) {
        copyChildFromTemplate("Props");
        return;
    }
    MPPProps props;
    StreamOutput stream(writer(), "Props", props);
    props.open();
    props.startNewElementForType(0x04400000, 2);
    props.write2ByteInteger(0);
    props.closeCurrentElement();
    writeFieldAliasesElement(props, {project().customTaskFieldNames, project().customFieldNameRoom}, kDescriptionEnding,
                             getTextFieldTypeForIndex);
    props.close();
    stream.finish();
}

// Preprocessing.

namespace {

// The only task without a parent; null where there is none or more than one.
std::shared_ptr<MPPTask> singleTopTask(const std::vector<std::shared_ptr<MPPTask>>& tasks) {
    std::shared_ptr<MPPTask> top;
    for (const auto& task : tasks) {
        if (task->parent)
            continue;
        if (top)
            return nullptr;
        top = task;
    }
    return top;
}

// The project stands in for its single top task, of which dates and duration survive.
void absorbRoot(MPPProject& project, const std::shared_ptr<MPPTask>& root) {
    project.tasks.erase(std::find(project.tasks.begin(), project.tasks.end(), root));
    project.keepRemovedRecord(root);
    project.topTask = root.get();
    project.startDate = root->startDate;
    project.endDate = root->endDate;
    project.duration = root->duration;
}

} // namespace

void MPP12TaskWriter::preprocessProject(MPPProject& project) {
    const std::shared_ptr<MPPTask> root = singleTopTask(project.tasks);
    if (root)
        absorbRoot(project, root);

    std::stable_sort(project.tasks.begin(), project.tasks.end(),
                     [](const auto& left, const auto& right) { return left->ID < right->ID; });
    project.ID = 0;
    std::uint64_t nextID = 1;
    for (const auto& task : project.tasks) {
        task->ID = nextID++;
        if (!task->parent || task->parent == root.get())
            task->parent = &project;
        task->cost += task->fixedCost;
    }

    // Without a root this takes the references that name no task.
    const auto replaceRoot = [&](TaskReference& reference) {
        if (reference.record() == root.get())
            reference.setRecord(&project);
    };
    for (const auto& assignment : project.assignments)
        replaceRoot(assignment->task);
    for (const auto& constraint : project.constraints) {
        replaceRoot(constraint->task1);
        replaceRoot(constraint->task2);
    }

    for (const auto& task : project.tasks)
        moveFirstBaselineOut(*task);
}

} // namespace brackwater
