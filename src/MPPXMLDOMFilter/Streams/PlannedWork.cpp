#include "MPPXMLDOMFilter/Streams/PlannedWork.h"

#include "MPPXMLDOMFilter/Streams/RecordValues.h"
#include "MPPXMLDOMFilter/Streams/RowBuilder.h"

namespace brackwater {

namespace {

// Meanings unknown, written as found in real files.
constexpr std::uint16_t kMark = 4;

constexpr std::uint16_t kHeadSize = 16;
constexpr std::uint32_t kTenthsOfDay = 14400;
constexpr std::uint32_t kEndOfTime = 0x14B12AF7; // 2049-12-31 23:59

// Tenths of a minute since the format's day 0.
std::uint32_t tenthsOf(EncodedDate date) { return (date.bytes >> 16) * kTenthsOfDay + (date.bytes & 0xFFFF); }

} // namespace

void writePercentOverTime(MPPData& data, const std::vector<MPPProgressPoint>& points, DateEncoder& dates) {
    RowBuilder<kHeadSize> head;
    head.at(0).lowWord(points.size());
    head.at(2).word(kMark);
    head.at(4).integer(kHeadSize);
    head.at(8).zeroes(8);
    head.end(data);
    for (const MPPProgressPoint& point : points) {
        RowBuilder<20> row;
        row.at(0).integer(point.isBegin ? 1 : 0);
        row.at(4).integer(0);
        row.at(8).real(point.percent);
        row.at(16).integer(point.moment ? tenthsOf(dates(point.moment)) : kEndOfTime);
        row.end(data);
    }
}

namespace {

// Meanings unknown, written as found in real files.
constexpr double kFullUnits = 160000.0;
constexpr std::uint32_t kPlannedWorkMark = 0x0304002C;
constexpr std::uint32_t kPhasesMark = 0x0340DC00;
constexpr std::uint32_t kNoPhasesMark = 0x0304C800;
constexpr std::uint32_t kCompleteWorkMark = 0x00240018;
constexpr std::uint16_t kPhaseEnding = 1125;
constexpr std::uint16_t kConnectionMark = 0xA840;

// The share that a part has in the work. The order of the operations counts in the last bit.
std::uint32_t shareOfWork(double part, double work) {
    if (work == 0)
        return 0;
    return static_cast<std::uint32_t>(saturatingCut<std::int64_t>(part / work * 100.0 * 384.0));
}

void writePhase(MPPData& data, const MPPAssignmentPhase& phase, double total) {
    RowBuilder<28> row;
    row.at(0).integer(phase.startShift);
    row.at(4).real(total);
    row.at(12).real(phase.workPerDay);
    row.at(20).word(0);
    row.at(22).word(kPhaseEnding);
    row.at(24).integer(0);
    row.end(data);
}

void writeConnection(MPPData& data, const MPPAssignmentPhase& phase, double total) {
    RowBuilder<28> row;
    row.at(0).integer(phase.finishShift);
    row.at(4).real(total);
    row.at(12).real(0.0);
    row.at(20).word(kConnectionMark);
    row.at(22).word(kPhaseEnding);
    row.at(24).integer(0);
    row.end(data);
}

void writePhases(MPPData& data, const std::vector<MPPAssignmentPhase>& phases, std::uint32_t share) {
    RowBuilder<8> head;
    head.at(0).integer(0);
    head.at(4).integer(kPhasesMark);
    head.end(data);
    double total = 0;
    for (std::size_t i = 0; i < phases.size(); ++i) {
        total += phases[i].work;
        writePhase(data, phases[i], total);
        if (i + 1 < phases.size())
            writeConnection(data, phases[i], total);
    }
    data.writeInteger(share);
}

void writeNoPhases(MPPData& data, const MPPAssignment& assignment, double remaining, std::uint32_t share) {
    RowBuilder<12> head;
    head.at(0).integer(1);
    head.at(4).integer(kNoPhasesMark);
    head.at(8).integer(1);
    head.end(data);
    if (!(assignment.actualWork > 0)) {
        data.writeZeroesBlockOfSize(28);
        return;
    }
    for (int i = 0; i < 2; ++i) {
        RowBuilder<28> group;
        group.at(0).real(remaining);
        group.at(8).real(kFullUnits);
        group.at(16).zeroes(8);
        group.at(24).integer(share);
        group.end(data);
    }
}

// The blocks of a spread, as real files hold them. Fields without a name are zero or differ from file to file; meaning
// unknown. A moment is told in eighths of a tenth of a minute of working time.

constexpr double kPlannedUnitsScale = 16.0;

std::uint32_t momentOf(double seconds) {
    constexpr double kStepsOfMinute = 80.0;
    return static_cast<std::uint32_t>(saturatingCut<std::int32_t>(seconds / 60.0 * kStepsOfMinute));
}

void writePlannedSpread(MPPData& data, const MPPWorkSpread& planned) {
    RowBuilder<44> head;
    head.at(0).lowWord(planned.phases.size());
    head.at(2).word(0x20);
    head.at(4).integer(0x2C);
    head.at(8).real(planned.units * kPlannedUnitsScale);
    head.at(16).real(thousandthsOfMinute(planned.work));
    head.at(24).integer(momentOf(planned.elapsed));
    head.at(28).integer(0); // contour: flat
    head.at(32).integer(planned.phases.empty() && planned.work > 0 ? 1 : 0);
    head.at(36).zeroes(8);
    head.end(data);
    for (const MPPWorkPhase& phase : planned.phases) {
        RowBuilder<28> row;
        row.at(0).real(thousandthsOfMinute(phase.work));
        row.at(8).real(phase.units * kPlannedUnitsScale);
        row.at(16).zeroes(8);
        row.at(24).integer(momentOf(phase.elapsed));
        row.end(data);
    }
    data.writeZeroesBlockOfSize(24);
}

void writeActualSpread(MPPData& data, const MPPWorkSpread& actual) {
    RowBuilder<36> head;
    head.at(0).lowWord(actual.phases.size());
    head.at(2).word(0x18);
    head.at(4).integer(0x24);
    head.at(8).real(actual.units);
    head.at(16).real(thousandthsOfMinute(actual.work));
    head.at(24).integer(momentOf(actual.elapsed));
    head.at(28).zeroes(8);
    head.end(data);
    for (const MPPWorkPhase& phase : actual.phases) {
        RowBuilder<20> row;
        row.at(0).real(thousandthsOfMinute(phase.work));
        row.at(8).real(phase.units);
        row.at(16).integer(momentOf(phase.elapsed));
        row.end(data);
    }
    data.writeZeroesBlockOfSize(16);
}

} // namespace

bool hasCompleteWork(const MPPAssignment& assignment) {
    if (const auto& spread = assignment.workOverTime)
        return !spread->actual.phases.empty() || !spread->planned.phases.empty();
    return assignment.actualWork > 0;
}

void writePlannedWork(MPPData& data, const MPPAssignment& assignment) {
    if (assignment.workOverTime)
        return writePlannedSpread(data, assignment.workOverTime->planned);
    const double remaining = thousandthsOfMinute(assignment.remainingWork);
    const std::uint32_t share = shareOfWork(assignment.remainingWork, assignment.work);
    RowBuilder<32> head;
    head.at(0).lowWord(assignment.assignmentPhases.size());
    head.at(2).word(32);
    head.at(4).integer(kPlannedWorkMark);
    head.at(8).real(kFullUnits);
    head.at(16).real(remaining);
    head.at(24).integer(share);
    head.at(28).integer(0);
    head.end(data);
    if (assignment.assignmentPhases.empty())
        writeNoPhases(data, assignment, remaining, share);
    else
        writePhases(data, assignment.assignmentPhases, share);
}

void writeCompleteWork(MPPData& data, const MPPAssignment& assignment) {
    if (assignment.workOverTime)
        return writeActualSpread(data, assignment.workOverTime->actual);
    const double actual = thousandthsOfMinute(assignment.actualWork);
    const std::uint32_t share = shareOfWork(assignment.actualWork, assignment.work);
    RowBuilder<72> row;
    row.at(0).word(1);
    row.at(2).integer(kCompleteWorkMark);
    row.at(6).word(0);
    row.at(8).real(kFullUnits);
    row.at(16).real(actual);
    row.at(24).integer(share);
    row.at(28).integer(0);
    row.at(32).real(actual);
    row.at(40).real(kFullUnits);
    row.at(48).integer(share);
    row.at(52).real(actual);
    row.at(60).real(kFullUnits);
    row.at(68).integer(share);
    row.end(data);
}

} // namespace brackwater
