#include "StreamsTest.h"

#include "MPPXMLDOMFilter/Streams/MPP12AssignmentWriter.h"
#include "Platform/Time/TimeZone.h"
#include "support/LogCapture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <initializer_list>
#include <limits>

namespace brackwater::test {
namespace {

class AssignmentStreams : public StreamsTest {
protected:
    AssignmentStreams() : task(addTask("a")), resource(addResource("r")) { addTask("b"); }

    bool writeAssignments() {
        preprocess();
        return write<MPP12AssignmentWriter>();
    }
    [[nodiscard]] Bytes fixedRow(std::size_t index) const { return slice(stream("FixedData"), 142 * index, 142); }
    [[nodiscard]] Bytes fixedMeta(std::size_t index) const { return metaRecord(stream("FixedMeta"), 34, index); }
    [[nodiscard]] Bytes fixed2Meta(std::size_t index) const { return metaRecord(stream("Fixed2Meta"), 53, index); }
    [[nodiscard]] std::vector<VarMetaRecord> varRecords() const {
        return varMetaRecords(stream("VarMeta"), stream("Var2Data"), 0x0F40);
    }

    MPPTask& task;
    MPPResource& resource;
    LogCapture log;
};

TEST_F(AssignmentStreams, WithoutAssignmentsTheStreamsAreEmptyAndTheirIndexesCountNothing) {
    ASSERT_TRUE(writeAssignments()) << failureReason;
    EXPECT_TRUE(stream("Var2Data").empty());
    EXPECT_TRUE(stream("FixedData").empty());
    EXPECT_TRUE(stream("Fixed2Data").empty());
    EXPECT_TRUE(sameBytes(stream("VarMeta"), ByteImage(24).integer(0, 0xFADFADBA)));
    EXPECT_TRUE(sameBytes(stream("FixedMeta"), ByteImage(16).integer(0, 0xFADFADBA).integer(4, 4)));
    EXPECT_TRUE(sameBytes(stream("Fixed2Meta"), ByteImage(16).integer(0, 0xFADFADBA).integer(4, 4)));
    EXPECT_EQ(stream("Props"), templateStreams["Props"]);
}

TEST_F(AssignmentStreams, PlannedWorkWithoutPhases) {
    MPPAssignment& assignment = addAssignment(&task, &resource);
    assignment.work = 3;
    assignment.remainingWork = 1;
    ASSERT_TRUE(writeAssignments()) << failureReason;
    const auto records = varRecords();
    EXPECT_EQ(idsAndTypes(records), "1:49 1:634 1:665 1:667");
    ByteImage expected(72);
    expected.word(2, 32).integer(4, 0x0304002C).real(8, 160000).real(16, 60000);
    expected.integer(32, 1).integer(36, 0x0304C800).integer(40, 1);
    expected.integer(24, 12799); // 1 / 3 * 100 * 384 in this order is just below 12800
    EXPECT_TRUE(sameBytes(records.at(0).payload, expected));
    EXPECT_TRUE(sameBytes(records.at(2).payload, ByteImage(16)));
    EXPECT_TRUE(sameBytes(records.at(3).payload, ByteImage(16)));
}

TEST_F(AssignmentStreams, WorkThatIsDoneAddsABlockAndTwoGroups) {
    MPPAssignment& assignment = addAssignment(&task, &resource);
    assignment.work = 4;
    assignment.remainingWork = 1;
    assignment.actualWork = 3;
    ASSERT_TRUE(writeAssignments()) << failureReason;
    const auto records = varRecords();
    EXPECT_EQ(idsAndTypes(records), "1:49 1:50 1:634 1:665 1:667");
    ByteImage planned(100);
    planned.word(2, 32).integer(4, 0x0304002C).real(8, 160000).real(16, 60000).integer(24, 9600);
    planned.integer(32, 1).integer(36, 0x0304C800).integer(40, 1);
    planned.real(44, 60000).real(52, 160000).integer(68, 9600);
    planned.real(72, 60000).real(80, 160000).integer(96, 9600);
    EXPECT_TRUE(sameBytes(records.at(0).payload, planned));
    ByteImage complete(72);
    complete.word(0, 1).integer(2, 2359320).real(8, 160000).real(16, 180000).integer(24, 28800);
    complete.real(32, 180000).real(40, 160000).integer(48, 28800);
    complete.real(52, 180000).real(60, 160000).integer(68, 28800);
    EXPECT_TRUE(sameBytes(records.at(1).payload, complete));
    const ByteImage meta = ByteImage(34).integer(0, 5 << 16).word(8, 0x3021).integer(10, 2147483600).word(14, 0xA0);
    EXPECT_TRUE(sameBytes(fixedMeta(0), meta));
}

// As in files saved by Microsoft Project 2007: 40 hours, of which 4 are done, with a pause of 24 hours in the rest.
TEST_F(AssignmentStreams, ASpreadTellsWorkAndPausesAsRealFilesHoldThem) {
    MPPAssignment& assignment = addAssignment(&task, &resource);
    assignment.actualWork = 4;
    assignment.remainingWork = 36;
    assignment.workOverTime = std::make_unique<MPPWorkOverTime>();
    *assignment.workOverTime = {{4, 10000, 14400, {{4, 10000, 14400}}},
                                {36, 10000, 216000, {{12, 10000, 43200}, {12, 0, 129600}, {36, 10000, 216000}}},
                                true};
    ASSERT_TRUE(writeAssignments()) << failureReason;
    const auto records = varRecords();
    ByteImage planned(44 + 3 * 28 + 24);
    planned.word(0, 3).word(2, 0x20).integer(4, 0x2C).real(8, 160000).real(16, 2160000).integer(24, 288000);
    planned.real(44, 720000).real(52, 160000).integer(68, 57600);
    planned.real(72, 720000).integer(96, 172800);
    planned.real(100, 2160000).real(108, 160000).integer(124, 288000);
    EXPECT_TRUE(sameBytes(records.at(0).payload, planned));
    ByteImage actual(36 + 20 + 16);
    actual.word(0, 1).word(2, 0x18).integer(4, 0x24).real(8, 10000).real(16, 240000).integer(24, 19200);
    actual.real(36, 240000).real(44, 10000).integer(52, 19200);
    EXPECT_TRUE(sameBytes(records.at(1).payload, actual));
    EXPECT_EQ(fixedMeta(0)[8], 0x31);

    assignment.remainingWork = 0;
    assignment.workOverTime->planned = {};
    output = std::make_shared<MemoryOutput>();
    ASSERT_TRUE(writeAssignments()) << failureReason;
    EXPECT_TRUE(sameBytes(varRecords().at(0).payload, ByteImage(68).word(2, 0x20).integer(4, 0x2C)));
    EXPECT_EQ(fixedMeta(0)[8], 0x71);
}

TEST_F(AssignmentStreams, PhasesAreConnectedButNotBehindTheLast) {
    MPPAssignment& assignment = addAssignment(&task, &resource);
    assignment.work = 2;
    assignment.remainingWork = 2;
    assignment.assignmentPhases = {{10, 20, 1.5, 8}, {30, 40, 2.25, 4}};
    ASSERT_TRUE(writeAssignments()) << failureReason;
    ByteImage expected(32 + 8 + 3 * 28 + 4);
    expected.word(0, 2).word(2, 32).integer(4, 0x0304002C).real(8, 160000).real(16, 120000).integer(24, 38400);
    expected.integer(36, 0x0340DC00);
    expected.integer(40, 10).real(44, 1.5).real(52, 8).word(62, 1125);
    expected.integer(68, 20).real(72, 1.5).word(88, 0xA840).word(90, 1125);
    expected.integer(96, 30).real(100, 3.75).real(108, 4).word(118, 1125);
    expected.integer(124, 38400);
    EXPECT_TRUE(sameBytes(varRecords().at(0).payload, expected));
}

TEST_F(AssignmentStreams, SharesOfWorkSaturateThenKeepTheirLowBits) {
    const auto share = [this](double part, double work) {
        MPPAssignment& assignment = addAssignment(&task, &resource);
        assignment.work = work;
        assignment.remainingWork = part;
        output = std::make_shared<MemoryOutput>();
        EXPECT_TRUE(writeAssignments()) << failureReason;
        return integerAt(varRecords().at(4 * (project.assignments.size() - 1)).payload, 24);
    };
    EXPECT_EQ(share(1, 0), 0U);
    EXPECT_EQ(share(200000, 1), 200000U * 38400U) << "the product passes 32 bits";
    EXPECT_EQ(share(1e300, 1e-300), 0xFFFFFFFFU) << "the largest of 64 bits";
    EXPECT_EQ(share(-1e300, 1e-300), 0U) << "the smallest of 64 bits";
    EXPECT_EQ(share(std::numeric_limits<double>::quiet_NaN(), 1), 0U);
    EXPECT_EQ(share(-1, 1), 0xFFFF6A00U);
}

TEST_F(AssignmentStreams, ARowHoldsEachFieldAtItsOffset) {
    addAssignment(&task, &resource);
    MPPAssignment& assignment = addAssignment(&task, nullptr);
    assignment.startDate = dateAt(1);
    assignment.finishDate = dateAt(2);
    assignment.resumeDate = dateAt(3);
    assignment.stopDate = dateAt(4);
    assignment.work = 1;
    assignment.actualWork = 2;
    assignment.remainingWork = 3;
    assignment.assignmentUnits = 5000;
    assignment.cost = 6;
    assignment.actualCost = 7;
    assignment.remainingCost = 8;
    assignment.baseline0 = std::make_shared<MPPAssignmentBaseline>(MPPAssignmentBaseline{9, 0, dateAt(5), dateAt(6)});
    ASSERT_TRUE(writeAssignments()) << failureReason;
    ByteImage expected(142);
    expected.integer(0, 2).integer(4, 1).integer(8, 0xFFFF0001);
    expected.date(12, 0, 1).date(16, 0, 2).date(20, 0, 3).integer(26, 0x00070000);
    expected.date(36, 0, 5).date(40, 0, 6).date(44, 0, 4).integer(48, 1);
    expected.real(54, 5000).real(62, 60000).real(70, 120000).real(78, 60000).real(86, 180000);
    expected.real(94, 540000).real(102, 6).real(110, 7).real(118, 8);
    EXPECT_TRUE(sameBytes(fixedRow(1), expected));
    EXPECT_EQ(integerAt(fixedRow(0), 8), 1U);
    const Guid noResource(Guid::Bytes{0x78, 0x8B, 0xCB, 0xA0, 0x8C, 0x2A, 0x6D, 0x43, 0, 0, 0, 0, 0, 0, 0, 0xFF});
    const ByteImage expected2 = ByteImage(48).guid(0, assignment.GUID()).guid(16, task.GUID()).guid(32, noResource);
    EXPECT_TRUE(sameBytes(slice(stream("Fixed2Data"), 48, 48), expected2));
    EXPECT_TRUE(sameBytes(slice(stream("Fixed2Data"), 32, 16), ByteImage(16).guid(0, resource.GUID())));
}

TEST_F(AssignmentStreams, MaterialShowsQuantitiesInsteadOfWork) {
    resource.setResourceTypeMaterial();
    MPPAssignment& used = addAssignment(&task, &resource);
    used.assignmentUnits = 30000;
    used.work = 8;
    used.remainingWork = 2;
    MPPAssignment& noWork = addAssignment(&task, &resource);
    noWork.assignmentUnits = 30000;
    ASSERT_TRUE(writeAssignments()) << failureReason;
    const auto amounts = [this](std::size_t index) {
        std::vector<double> values;
        for (const std::size_t offset : std::initializer_list<std::size_t>{54, 62, 70, 78, 86})
            values.push_back(realAt(fixedRow(index), offset));
        return values;
    };
    EXPECT_THAT(amounts(0), testing::ElementsAre(3, 180000, 135000, 180000, 45000));
    EXPECT_THAT(amounts(1), testing::ElementsAre(3, 180000, 0, 180000, 180000)) << "nothing is done of no work";
}

TEST_F(AssignmentStreams, TheMomentOfWritingIsThePresent) {
    addAssignment(&task, &resource);
    const std::uint32_t before = MPPData::encodedDate(Date::now(), TimeZone::system());
    ASSERT_TRUE(writeAssignments()) << failureReason;
    const std::uint32_t after = MPPData::encodedDate(Date::now(), TimeZone::system());
    const auto records = varRecords();
    ASSERT_EQ(records.at(1).type, 634);
    // Days stand above tenths of a minute, so later moments are greater numbers.
    EXPECT_GE(integerAt(records.at(1).payload, 0), before);
    EXPECT_LE(integerAt(records.at(1).payload, 0), after);
}

TEST_F(AssignmentStreams, BaselinesAndNotesHaveElementsAndBits) {
    MPPAssignment& assignment = addAssignment(&task, &resource);
    assignment.notes = "n";
    for (int i = 0; i < 4; ++i)
        assignment.baselines.push_back(std::make_shared<MPPAssignmentBaseline>());
    *assignment.baselines[1] = {2, 0, dateAt(1), dateAt(2)};
    addAssignment(&task, &resource).notes = "";
    ASSERT_TRUE(writeAssignments()) << failureReason;

    const auto records = varRecords();
    EXPECT_EQ(idsAndTypes(records), "1:49 1:71 1:289 1:295 1:296 1:298 1:304 1:305 1:307 1:313 1:314 "
                                    "1:634 1:665 1:667 2:49 2:634 2:665 2:667");
    EXPECT_TRUE(sameBytes(records.at(2).payload, ByteImage(8).real(0, 120000)));
    EXPECT_TRUE(sameBytes(records.at(3).payload, ByteImage(4).date(0, 0, 1)));
    EXPECT_TRUE(sameBytes(records.at(4).payload, ByteImage(4).date(0, 0, 2)));
    EXPECT_TRUE(sameBytes(records.at(6).payload, ByteImage(4).noDate(0)));
    EXPECT_EQ(records.at(11).payload, records.at(15).payload) << "one moment of writing for the whole stream";
    ByteImage meta(34);
    meta.integer(0, 14 << 16).word(8, 0xB001).integer(10, 2147483600).word(14, 0x30);
    EXPECT_TRUE(sameBytes(fixedMeta(0), meta));
    ByteImage meta2(53);
    meta2.integer(8, 123).integer(32, 0x00800000).byte(36, 0x33).byte(37, 0x30);
    meta2.byte(41, 0xFD).byte(42, 0xFD).byte(43, 0xFD).byte(44, 0x01).byte(51, 0x40).byte(52, 1);
    EXPECT_TRUE(sameBytes(fixed2Meta(0), meta2));
    const ByteImage none =
        ByteImage(53).integer(4, 48).integer(8, 123).integer(32, 0x00800000).byte(41, 1).byte(51, 0x40).byte(52, 1);
    EXPECT_TRUE(sameBytes(fixed2Meta(1), none));
}

TEST_F(AssignmentStreams, TenBaselinesFitAndElevenDoNot) {
    MPPAssignment& assignment = addAssignment(&task, &resource);
    assignment.baselines.assign(11, std::make_shared<MPPAssignmentBaseline>());
    ASSERT_TRUE(writeAssignments()) << failureReason; // one moves out
    ByteImage presence(17);
    presence.integer(0, 0x33333333).byte(4, 0x33).integer(5, 0xFDFDFDFD).integer(9, 0xFDFDFDFD).word(13, 0xFDFD);
    presence.byte(15, 0x41).byte(16, 1);
    EXPECT_TRUE(sameBytes(slice(fixed2Meta(0), 36, 17), presence));
    EXPECT_EQ(varRecords().at(30).type, 377);

    assignment.baselines.assign(11, std::make_shared<MPPAssignmentBaseline>());
    output = std::make_shared<MemoryOutput>();
    EXPECT_FALSE(writeAssignments());
    EXPECT_EQ(failureReason, "TooManyBaselinesException: It is not permitted to write more than 10 baselines");
    EXPECT_EQ(output->created.back(), "Var2Data");
}

TEST_F(AssignmentStreams, AnIDWithoutAnAssignmentLeavesAHole) {
    addAssignment(&task, &resource).ID = 1;
    addAssignment(&task, &resource).ID = 3;
    ASSERT_TRUE(write<MPP12AssignmentWriter>()) << failureReason; // not preprocessed
    EXPECT_TRUE(sameBytes(fixedRow(1), ByteImage(142).integer(0, 2)));
    EXPECT_TRUE(sameBytes(fixedMeta(1), ByteImage(34).integer(0, 2).integer(4, 142).integer(8, 1)));
    EXPECT_EQ(integerAt(fixedRow(2), 0), 3U);
    EXPECT_EQ(stream("Fixed2Data").size(), 2U * 48U);
}

TEST_F(AssignmentStreams, EachAssignmentIsLoggedAsItDescribesItself) {
    MPPResource other;
    other.ID = 12;
    other.name = "Crane";
    addAssignment(&task, &resource).work = 1.25;
    addAssignment(&task, &other).work = 1.25;
    addAssignment(&task, nullptr);
    ASSERT_TRUE(writeAssignments()) << failureReason;
    const std::vector<std::string> lines = log.lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(
        lines[0],
        fmt::format("+++ curAssignment: <MPPAssignment>: ID=1 task: ID=1 resource: ID={}, work: 1.250000 resource: {}",
                    resource.ID, resource.description()));
    EXPECT_EQ(lines[1], "+++ curAssignment: <MPPAssignment>: ID=2 task: ID=1 resource: ID=12, work: 1.250000 resource: "
                        "<MPPResource>: ID=12 name=\"Crane\" group=\"(null)\" type=0 (Work) calendar: <null>");
    EXPECT_EQ(lines[2], "+++ curAssignment: <MPPAssignment>: ID=3 task: ID=1 resource: <null>, work: 0.000000 "
                        "resource: (null)");
}

} // namespace
} // namespace brackwater::test
