#include "StreamsTest.h"

#include "MPPXMLDOMFilter/Streams/MPP12TaskWriter.h"
#include "support/ExpectException.h"

#include <gmock/gmock.h>

#include <initializer_list>
#include <numeric>

namespace brackwater::test {
namespace {

constexpr std::uint16_t kEnding = 0x0B40;
constexpr std::size_t kHeaderRows = 3;
constexpr std::size_t kProjectRow = 3;
constexpr std::size_t kFirstTaskRow = 4;

class TaskStreams : public StreamsTest {
protected:
    bool writeTasks() { return write<MPP12TaskWriter>(); }
    [[nodiscard]] Bytes fixedRow(std::size_t index) const {
        return slice(stream("FixedData"), 16 * kHeaderRows + 264 * (index - kHeaderRows), 264);
    }
    [[nodiscard]] Bytes fixedMeta(std::size_t index) const { return metaRecord(stream("FixedMeta"), 47, index); }
    [[nodiscard]] Bytes fixed2Row(std::size_t index) const { return slice(stream("Fixed2Data"), 54 * index, 54); }
    [[nodiscard]] Bytes fixed2Meta(std::size_t index) const { return metaRecord(stream("Fixed2Meta"), 86, index); }
    [[nodiscard]] std::vector<VarMetaRecord> varRecords() const {
        return varMetaRecords(stream("VarMeta"), stream("Var2Data"), kEnding);
    }
};

// Every date but those that a test sets is absent; the fields that never hold one are listed here.
ByteImage rowWithoutDates() {
    ByteImage row(264);
    for (const std::size_t offset : std::initializer_list<std::size_t>{8, 12, 16, 20, 88, 92, 96, 100, 104, 108, 112,
                                                                       116, 130, 136, 140, 148, 152, 156, 164})
        row.noDate(offset);
    return row;
}

ByteImage metaOfPlainTask() {
    ByteImage record(47);
    record.integer(0, 0x00010000).integer(4, 3 * 16 + 264).byte(8, 0x43).byte(9, 0x82).byte(11, 0x90).byte(12, 0x01);
    record.byte(13, 0xC6).integer(14, 0xFFFFFFFF).integer(18, 0x01FFFFFF).byte(22, 0x08);
    return record;
}

TEST_F(TaskStreams, AProjectWithoutTasksHoldsItsTitleAndItsOwnRow) {
    project.title = "Plan";
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;

    EXPECT_TRUE(sameBytes(stream("Var2Data"), ByteImage(14).integer(0, 10).text(4, "Plan")));
    EXPECT_EQ(idsAndTypes(varRecords()), "0:14");
    EXPECT_TRUE(sameBytes(slice(stream("FixedData"), 0, 48),
                          ByteImage(48).word(2, 0xFFFF).word(16, 1).word(18, 0xFFFF).word(32, 2).word(34, 0xFFFF)));
    EXPECT_EQ(stream("FixedData").size(), 48U + 264U);
    EXPECT_EQ(stream("Fixed2Data").size(), 4U * 54U);
    EXPECT_EQ(stream("Props"), templateStreams["Props"]);
    const std::vector<std::string> order{"Var2Data",   "VarMeta",    "FixedData", "FixedMeta",
                                         "Fixed2Data", "Fixed2Meta", "Props"};
    EXPECT_EQ(output->created, order);
}

TEST_F(TaskStreams, ARowHoldsEachFieldAtItsOffset) {
    MPPTask& first = addTask("first");
    MPPTask& task = addTask("second", &first);
    addTask("third");
    task.outlineLevel = 0x10002;
    task.startDate = dateAt(1, 4800);
    task.endDate = dateAt(2, 6000);
    task.stop = dateAt(3);
    task.resume = dateAt(4);
    task.actualStart = dateAt(5);
    task.constraintDate = dateAt(6);
    task.createDate = dateAt(7);
    task.duration = 28800;
    task.actualDuration = 14405; // not a whole tenth of a minute
    task.remainingDuration = -6;
    task.constraintType = -1;
    task.priority = 0x1ABCD;
    task.percentageComplete = 40;
    task.percentageWorkComplete = 30;
    task.taskType = 2;
    task.work = 0.1;
    task.actualWork = 2;
    task.remainingWork = 3;
    task.cost = 5;
    task.fixedCost = 1.5;
    task.actualCost = 7;
    task.remainingCost = 8;
    task.baseline0 = std::make_shared<MPPTaskBaseline>();
    *task.baseline0 = {600, 9, 0, 4, dateAt(8), dateAt(9)};
    auto calendar = std::make_shared<MPPCalendar>();
    project.baseCalendars.push_back(calendar);
    task.calendar.setRecord(calendar);
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;

    ByteImage expected = rowWithoutDates();
    expected.integer(0, 2).integer(4, 2).date(8, 6000, 2).date(12, 4800, 1).date(16, 0, 3).date(20, 0, 4);
    expected.integer(36, 1).word(40, 2).integer(60, 4800).word(64, 0x27).integer(66, 2400).integer(70, 0xFFFFFFFF);
    expected.integer(74, 100).word(78, 0x27).word(80, 0xFFFF).word(86, 8).date(88, 4800, 1).date(92, 6000, 2);
    expected.date(96, 0, 5).date(104, 0, 8).date(108, 0, 9).date(112, 0, 6).date(116, 0, 4).word(120, 0xABCD);
    expected.word(122, 40).word(124, 30).word(126, 2).word(128, 3).date(130, 0, 7).integer(144, 0x00009080);
    expected.date(148, 4800, 1).date(152, 6000, 2).integer(160, 3).real(168, 0.1 * 60 * 1000).real(176, 240000);
    expected.real(184, 120000).real(192, 180000).real(200, 6.5).real(208, 1.5).real(216, 7).real(224, 8).real(232, 9);
    EXPECT_TRUE(sameBytes(fixedRow(kFirstTaskRow + 1), expected));
}

TEST_F(TaskStreams, WorkIsMultipliedTwice) {
    MPPTask& task = addTask("a");
    addTask("b");
    task.work = 1.1; // 1.1 * 60 * 1000 and 1.1 * 60000 differ in the last bit
    preprocess();
    ASSERT_TRUE(writeTasks());
    const volatile double minutes = 1.1 * 60;
    EXPECT_EQ(realAt(fixedRow(kFirstTaskRow), 168), minutes * 1000);
}

TEST_F(TaskStreams, TheProjectsRowsDifferFromATasks) {
    addTask("a");
    addTask("b");
    project.startDate = dateAt(1);
    project.estimated = false;
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;

    ByteImage row = rowWithoutDates();
    row.date(12, 0, 1).integer(36, 0xFFFFFFFF).word(64, 0x15).word(78, 0x15).word(86, 8).date(88, 0, 1).word(120, 500);
    row.word(126, 1).word(128, 3).integer(144, 0x80).date(148, 0, 1).integer(160, 1);
    EXPECT_TRUE(sameBytes(fixedRow(kProjectRow), row));

    ByteImage meta(47);
    meta.integer(0, 0x00020000).integer(4, 48).byte(8, 0x43).byte(9, 0x07).byte(10, 0x10).byte(12, 0x01).byte(13, 0xC6);
    meta.integer(14, 0xFFFFFFFF).integer(18, 0x01FFFFFF).byte(22, 0x08);
    EXPECT_TRUE(sameBytes(fixedMeta(kProjectRow), meta));
    EXPECT_TRUE(sameBytes(fixedMeta(0), ByteImage(47).integer(0, 4).integer(8, 4)));
    EXPECT_TRUE(sameBytes(fixedMeta(2), ByteImage(47).integer(0, 4).integer(4, 32).integer(8, 4)));

    const ByteImage row2 =
        ByteImage(54).guid(0, project.GUID()).integer(20, 0x3FF00000).integer(44, 0x00400003).noDate(50);
    EXPECT_TRUE(sameBytes(fixed2Row(kProjectRow), row2));
    EXPECT_TRUE(
        sameBytes(fixed2Meta(kProjectRow), ByteImage(86).integer(4, 3 * 54).integer(8, 0x7F).integer(82, 0x10000000)));
    EXPECT_TRUE(sameBytes(fixed2Meta(1), ByteImage(86).integer(4, 54)));
}

TEST_F(TaskStreams, ATasksOtherRowsNameItsParentAndItsStart) {
    MPPTask& parent = addTask("a");
    MPPTask& child = addTask("b", &parent);
    addTask("c");
    child.startDate = dateAt(4, 100);
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;

    EXPECT_TRUE(sameBytes(fixedMeta(kFirstTaskRow), metaOfPlainTask()));
    ByteImage expected(54);
    expected.guid(0, child.GUID()).real(16, 2.0).guid(24, parent.GUID()).integer(44, 0x00040003).date(50, 100, 4);
    EXPECT_TRUE(sameBytes(fixed2Row(kFirstTaskRow + 1), expected));
    EXPECT_TRUE(sameBytes(slice(fixed2Row(kFirstTaskRow), 24, 16), ByteImage(16).guid(0, project.GUID())));
}

TEST_F(TaskStreams, MilestoneDiffersInOneByteOfItsMetaRecord) {
    addTask("a").milestone = true;
    addTask("b");
    preprocess();
    ASSERT_TRUE(writeTasks());
    EXPECT_TRUE(sameBytes(fixedMeta(kFirstTaskRow), metaOfPlainTask().byte(8, 0x63)));
}

TEST_F(TaskStreams, FlagsFollowNotesAndSettings) {
    MPPTask& task = addTask("a");
    task.notes = "x";
    task.levelingCanSplit = false;
    task.ignoreResourceCalendar = true;
    task.estimated = false;
    addTask("b").notes = "";
    preprocess();
    ASSERT_TRUE(writeTasks());
    const ByteImage expected =
        metaOfPlainTask().integer(0, 0x00020000).byte(10, 0x02).byte(12, 0x11).byte(13, 0xC4).word(43, 0x0100);
    EXPECT_TRUE(sameBytes(fixedMeta(kFirstTaskRow), expected));
    EXPECT_EQ(wordAt(fixedRow(kFirstTaskRow), 64), 7);
    EXPECT_TRUE(sameBytes(fixedMeta(kFirstTaskRow + 1), metaOfPlainTask().integer(4, 48 + 2 * 264)));
    const auto records = varRecords();
    EXPECT_EQ(idsAndTypes(records), "0:14 0:1252 1:14 1:15 2:14");
    EXPECT_TRUE(sameBytes(records.at(1).payload, ByteImage(8).integer(0, 1).integer(4, 1)));
}

TEST_F(TaskStreams, TheProjectsOwnNotesTextsAndBaselinesSetItsFlags) {
    project.notes = "n";
    project.customFieldValues = {"x"};
    project.baselines.assign(11, std::make_shared<MPPTaskBaseline>()); // more than there are bits for
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;
    const Bytes meta = fixedMeta(kProjectRow);
    EXPECT_EQ(integerAt(meta, 0), 0x00020000U);
    EXPECT_EQ(meta.at(12), 0x11);
    EXPECT_EQ(meta.at(22), 0x48);
    EXPECT_EQ(wordAt(meta, 43), 0x0100);
    const Bytes meta2 = fixed2Meta(kProjectRow);
    EXPECT_EQ(integerAt(meta2, 20), 0x00000DFFU);
    EXPECT_EQ(integerAt(meta2, 82), 0x1007CF9FU);
    EXPECT_EQ(idsAndTypes(varRecords()), "0:14");
}

TEST_F(TaskStreams, TextFieldsHaveTypesAndBitsByPosition) {
    MPPTask& task = addTask("a");
    addTask("b");
    task.customFieldValues.resize(35);
    for (const std::size_t position : std::initializer_list<std::size_t>{1, 2, 3, 10, 11, 16, 17, 24, 25, 30})
        task.customFieldValues[position - 1] = "v" + std::to_string(position);
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;

    const auto records = varRecords();
    EXPECT_EQ(idsAndTypes(records), "0:14 0:1252 1:14 1:51 1:54 1:57 1:70 1:317 1:322 1:323 1:330 1:331 1:336 2:14");
    EXPECT_TRUE(sameBytes(records.at(6).payload, ByteImage(8).text(0, "v10")));
    ByteImage expected = metaOfPlainTask();
    expected.integer(0, 11 << 16).byte(22, 0xC8).byte(23, 0x81).byte(32, 0x84).byte(33, 0x81).byte(34, 0x21);
    EXPECT_TRUE(sameBytes(fixedMeta(kFirstTaskRow), expected));
}

TEST_F(TaskStreams, AllThirtyTextFieldsHaveTheirTypes) {
    addTask("a").customFieldValues.assign(30, "x");
    addTask("b");
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;
    EXPECT_EQ(idsAndTypes(varRecords()),
              "0:14 0:1252 1:14 1:51 1:54 1:57 1:60 1:63 1:66 1:67 1:68 1:69 1:70 1:317 1:318 1:319 1:320 1:321 1:322 "
              "1:323 1:324 1:325 1:326 1:327 1:328 1:329 1:330 1:331 1:332 1:333 1:334 1:335 1:336 2:14");
}

TEST_F(TaskStreams, ABaselineHasSixElements) {
    MPPTask& task = addTask("a");
    addTask("b");
    for (int i = 0; i < 7; ++i)
        task.baselines.push_back(std::make_shared<MPPTaskBaseline>());
    *task.baselines[1] = {600, 9, 0, 4, dateAt(8), std::nullopt};
    preprocess(); // the first one moves into the row
    ASSERT_TRUE(writeTasks()) << failureReason;

    const auto records = varRecords();
    EXPECT_EQ(idsAndTypes({records.begin() + 3, records.end()}),
              "1:482 1:483 1:484 1:485 1:487 1:488 1:493 1:494 1:495 1:496 1:498 1:499 "
              "1:504 1:505 1:506 1:507 1:509 1:510 1:515 1:516 1:517 1:518 1:520 1:521 "
              "1:526 1:527 1:528 1:529 1:531 1:532 1:544 1:545 1:546 1:547 1:549 1:550 2:14");
    EXPECT_TRUE(sameBytes(records.at(3).payload, ByteImage(4).date(0, 0, 8)));
    EXPECT_TRUE(sameBytes(records.at(4).payload, ByteImage(4).noDate(0)));
    EXPECT_TRUE(sameBytes(records.at(5).payload, ByteImage(8).real(0, 9)));
    EXPECT_TRUE(sameBytes(records.at(6).payload, ByteImage(8).real(0, 240000)));
    EXPECT_TRUE(sameBytes(records.at(7).payload, ByteImage(4).integer(0, 100)));
    EXPECT_TRUE(sameBytes(records.at(8).payload, ByteImage(2).word(0, 53)));
    EXPECT_EQ(integerAt(fixedMeta(kFirstTaskRow), 0), (1U + 6 * 6) << 16);
}

TEST_F(TaskStreams, EachBaselineHasBitsOfItsOwn) {
    // What the n-th baseline adds to the words at 8, 12, 16, 20, 74, 78 and 82.
    static constexpr std::uint32_t kAdded[10][7] = {
        {0x00037F00, 0, 0, 0, 0x000F8000, 0, 0},          {0x0DFC0000, 0, 0, 0, 0x07C00000, 0, 0},
        {0xF0000000, 0x37, 0, 0, 0xE0000000, 0x3, 0},     {0, 0x0000DFC0, 0, 0, 0, 0x000001F0, 0},
        {0, 0x037F0000, 0, 0, 0, 0x0000F800, 0},          {0, 0xFC000000, 0x0000000D, 0, 0, 0x007C0000, 0},
        {0, 0, 0x000037F0, 0, 0, 0x3E000000, 0},          {0, 0, 0x00DFC000, 0, 0, 0, 0x0000001F},
        {0, 0, 0x7F000000, 0x00000003, 0, 0, 0x00000F80}, {0, 0, 0, 0x00000DFC, 0, 0, 0x0007C000}};
    static constexpr std::size_t kOffsets[7] = {8, 12, 16, 20, 74, 78, 82};
    for (std::size_t n = 0; n <= 10; ++n) {
        MPPTask& task = addTask("a");
        task.baseline0 = std::make_shared<MPPTaskBaseline>();
        task.baselines.assign(n, std::make_shared<MPPTaskBaseline>());
    }
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;

    std::uint32_t words[7] = {0x7F, 0, 0, 0, 0, 0, 0};
    for (std::size_t n = 0; n <= 10; ++n) {
        ByteImage expected(86);
        expected.integer(4, 54 * (kFirstTaskRow + n));
        for (std::size_t i = 0; i < 7; ++i) {
            words[i] |= n == 0 ? 0 : kAdded[n - 1][i];
            expected.integer(kOffsets[i], words[i]);
        }
        EXPECT_TRUE(sameBytes(fixed2Meta(kFirstTaskRow + n), expected)) << n << " baselines";
    }
}

// As in maps of files whose second rows are long: rows 307 to 317 are fixed fields, 319 begins the first baseline, and
// 926 is the project's element.
TEST_F(TaskStreams, LongSecondRowsHaveFourBitsMoreInFrontOfTheBaselines) {
    MPPTask& task = addTask("a");
    addTask("b");
    task.baseline0 = std::make_shared<MPPTaskBaseline>();
    task.baselines = {std::make_shared<MPPTaskBaseline>()};
    project.bookkeeping = std::make_unique<MPPBookkeeping>();
    project.bookkeeping->taskSecondRowSize = 80;
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;

    EXPECT_EQ(stream("Fixed2Data").size(), 80U * (kFirstTaskRow + 2));
    const auto rowsOf = [this](std::size_t index) {
        const Bytes record = fixed2Meta(index);
        std::vector<std::size_t> rows;
        for (std::size_t bit = 0; bit < 8 * (record.size() - 8); ++bit)
            if ((record[8 + bit / 8] >> bit % 8 & 1) != 0)
                rows.push_back(307 + bit);
        return rows;
    };
    std::vector<std::size_t> fixed(11);
    std::iota(fixed.begin(), fixed.end(), 307);
    EXPECT_THAT(rowsOf(kFirstTaskRow), testing::IsSupersetOf(fixed));
    EXPECT_THAT(rowsOf(kFirstTaskRow), testing::IsSupersetOf({319, 320, 321, 322, 323, 324}));
    EXPECT_THAT(rowsOf(kFirstTaskRow), testing::Not(testing::Contains(318)));
    fixed.push_back(926);
    EXPECT_THAT(rowsOf(kProjectRow), testing::ElementsAreArray(fixed));
}

TEST_F(TaskStreams, LimitsAreMetBehindTheWholeOfVar2Data) {
    MPPTask& task = addTask("a");
    task.baselines.assign(12, std::make_shared<MPPTaskBaseline>()); // one moves out, eleven stay
    addTask("b").title = "last";
    preprocess();
    EXPECT_FALSE(writeTasks());
    EXPECT_EQ(failureReason, "TooManyBaselinesException: Limit for 10 baselines exceeded");
    const Bytes& data = stream("Var2Data");
    EXPECT_TRUE(sameBytes(slice(data, data.size() - 10, 10), ByteImage(10).text(0, "last")));
    EXPECT_EQ(output->created.back(), "VarMeta");
}

TEST_F(TaskStreams, AValuePastTheLastTextFieldFailsTheSameWay) {
    MPPTask& task = addTask("a");
    task.customFieldValues.resize(31);
    task.customFieldValues[30] = "x";
    addTask("b");
    preprocess();
    EXPECT_FALSE(writeTasks());
    EXPECT_EQ(failureReason, "UnknownTextFieldException: Text field type is unknown for index 31");
    EXPECT_EQ(output->created.back(), "VarMeta");
    expectException("UnknownTextFieldException", "Text field type is unknown for index 0",
                    [] { static_cast<void>(MPP12TaskWriter::getTextFieldTypeForIndex(0)); });
}

TEST_F(TaskStreams, TheProjectsRowKeepsNoteAndTexts) {
    addTask("a").isSplit = true;
    addTask("b");
    preprocess();
    project.notes = "{}";
    project.notesAreRtf = true;
    project.rowIsATasks = true;
    project.customFieldValues = {"", "c"};
    ASSERT_TRUE(writeTasks()) << failureReason;
    const auto records = varRecords();
    EXPECT_EQ(idsAndTypes(records), "0:14 0:15 0:54 0:1252 1:14 2:14");
    EXPECT_EQ(records.at(1).payload, (Bytes{'{', '}', 0}));
    const Bytes meta = fixedMeta(kProjectRow);
    EXPECT_EQ(meta[2], 4);
    EXPECT_EQ(meta[12], 0x11);
    EXPECT_EQ(meta[22], 0x88);
    EXPECT_EQ(meta[44], 0x01);
    EXPECT_EQ(fixedMeta(kFirstTaskRow)[9], 0x02);
    EXPECT_EQ(fixedMeta(kFirstTaskRow)[13], 0xCE);
}

TEST_F(TaskStreams, FieldNamesAreWrittenInsteadOfTheTemplatesProps) {
    project.customTaskFieldNames = {std::string(51, 'a'), std::string(52, 'b'), ""};
    preprocess();
    ASSERT_TRUE(writeTasks()) << failureReason;

    constexpr std::uint32_t kBlock = 104 + 106 + 104;
    constexpr std::uint32_t kPayload = 12 + 3 * 8 + kBlock + 36;
    ByteImage expected(16 + 14 + 12 + kPayload);
    expected.integer(0, 16 + 14 + 12 + kPayload - 4).integer(4, 16 + 14 + 12 + kPayload - 4);
    expected.integer(8, 0x00016974).word(12, 2);
    expected.integer(16, 2).integer(20, 0x04400000).integer(24, 2);
    expected.integer(30, kPayload).integer(34, 0x04400001);
    constexpr std::size_t kStart = 42;
    expected.integer(kStart, 8 + 24 + kBlock).integer(kStart + 4, 8 + 24 + kBlock).integer(kStart + 8, 3);
    expected.word(kStart + 12, 51).word(kStart + 14, 0x0B40).integer(kStart + 16, 32);
    expected.word(kStart + 20, 54).word(kStart + 22, 0x0B40).integer(kStart + 24, 32 + 104);
    expected.word(kStart + 28, 57).word(kStart + 30, 0x0B40).integer(kStart + 32, 32 + 210);
    expected.text(kStart + 36, std::string(51, 'a')).text(kStart + 36 + 104, std::string(52, 'b'));
    for (const std::size_t i : std::initializer_list<std::size_t>{0, 1, 3, 4, 6, 7})
        expected.integer(kStart + 36 + kBlock + 4 * i, 8);
    EXPECT_TRUE(sameBytes(stream("Props"), expected));
}

TEST_F(TaskStreams, FieldNamesStandSideBySideWhereTheyNeedNoRoom) {
    project.customTaskFieldNames = {"ab", "c"};
    project.customFieldNameRoom = 0;
    ASSERT_TRUE(writeTasks()) << failureReason;
    constexpr std::uint32_t kSize = 8 + 16 + 6 + 4;
    ByteImage expected(kSize + 4);
    expected.integer(0, kSize).integer(4, kSize).integer(8, 2);
    expected.word(12, 51).word(14, 0x0B40).integer(16, 24).word(20, 54).word(22, 0x0B40).integer(24, 30);
    expected.text(28, "ab").text(34, "c");
    EXPECT_TRUE(sameBytes(slice(stream("Props"), 42, kSize + 4), expected));
}

TEST_F(TaskStreams, MoreFieldNamesThanTextFieldsFail) {
    project.customTaskFieldNames.assign(31, "n");
    preprocess();
    EXPECT_FALSE(writeTasks());
    EXPECT_EQ(failureReason, "UnknownTextFieldException: Text field type is unknown for index 31");
}

TEST_F(TaskStreams, AnUnresolvedCalendarIsAFailureNotACrash) {
    addTask("a").calendar.setProxyText("17");
    preprocess();
    EXPECT_TRUE(writeTasks()) << "the task was absorbed";
    addTask("b").calendar.setProxyText("17");
    output = std::make_shared<MemoryOutput>();
    EXPECT_FALSE(writeTasks());
    EXPECT_EQ(failureReason, "NSInternalInconsistencyException: Unresolved reference to the record with UID '17'.");
}

} // namespace
} // namespace brackwater::test
