#include "MPPXMLDOMFilter/Streams/MPPConstraintWriters.h"

#include "MPPXMLDOMFilter/Streams/FieldMapRows.h"
#include "MPPXMLDOMFilter/Streams/IndexRecord.h"
#include "MPPXMLDOMFilter/Streams/RowBuilder.h"

namespace brackwater {

namespace {

constexpr std::size_t kFixedRowSize = 20;
constexpr std::size_t kFixed2RowSize = 48;

// Units of a lag.
constexpr std::uint16_t kDays = 7;
constexpr std::uint16_t kPercent = 19;

// A link whose task was never found shows ID 0 and no GUID.
std::uint64_t idOf(const TaskReference& task) { return task.record() ? task.record()->ID : 0; }
Guid guidOf(const TaskReference& task) { return task.record() ? task.record()->GUID() : Guid(); }

} // namespace

RowStorageLayout MPPConstraintStreamWriter::layout() const { return {.kind = MPPRowKind::Link}; }

void MPPConstraintStreamWriter::writeFixedData(StreamOutput& stream) {
    stream.writeEach(project().constraints,
                     [&](const MPPConstraint& constraint) { writeConstraintFixedData(constraint); });
}

void MPPConstraintStreamWriter::writeConstraintFixedData(const MPPConstraint& constraint) {
    RowBuilder<kFixedRowSize> row;
    row.at(0).lowInteger(constraint.ID);
    row.at(4).lowInteger(idOf(constraint.task1));
    row.at(8).lowInteger(idOf(constraint.task2));
    row.at(12).lowWord(static_cast<std::uint32_t>(constraint.constraintType));
    row.at(14).word(constraint.isPercentage ? kPercent : kDays);
    row.at(16);
    if (constraint.isPercentage)
        row.integer(static_cast<std::uint32_t>(saturatingCut<std::int32_t>(constraint.lag)));
    else
        row.duration(lagInSeconds(constraint.lag));
    row.endElement(fixedData());
}

void MPPConstraintStreamWriter::writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) {
    IndexRecord<10> record;
    record.bit(LinkRow::UniqueID);
    record.bits(LinkRow::PredecessorID, LinkRow::Lag);
    for (std::size_t i = 0; i < project().constraints.size(); ++i) {
        record.end(fixedMeta, 0);
        stream.flush();
    }
}

void MPPConstraintStreamWriter::writeFixed2Data(StreamOutput& stream) {
    for (const auto& constraint : project().constraints) {
        RowBuilder<kFixed2RowSize> row;
        row.at(0).guid(constraint->GUID());
        row.at(16).guid(guidOf(constraint->task1));
        row.at(32).guid(guidOf(constraint->task2));
        row.endElement(fixed2Data());
        stream.flush();
    }
}

void MPPConstraintStreamWriter::writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) {
    IndexRecord<9, LinkRow::SecondBlock> record;
    record.bits(LinkRow::SecondBlock, LinkRow::SuccessorGuid);
    for (std::size_t i = 0; i < project().constraints.size(); ++i) {
        record.end(fixed2Meta, 0);
        stream.flush();
    }
}

} // namespace brackwater
