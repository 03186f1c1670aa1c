#include "StreamsTest.h"

#include "MPPXMLDOMFilter/Streams/MPPCalendarWriters.h"

namespace brackwater::test {
namespace {

constexpr std::size_t kHeaderRows = 4;
constexpr std::size_t kStandardRow = 4;
constexpr std::size_t kDefaultRow = 5;
constexpr std::size_t kFirstOtherRow = 6;

std::shared_ptr<MPPCalendarTimeRange> range(std::uint8_t startHour, std::uint8_t endHour, std::uint8_t endMinute = 0) {
    auto result = std::make_shared<MPPCalendarTimeRange>();
    result->start.emplace().setHours(startHour);
    result->end.emplace().setHours(endHour);
    result->end->setMinutes(endMinute);
    return result;
}

MPPDayRanges day(MPPRangeList ranges) { return std::make_shared<MPPRangeList>(std::move(ranges)); }

class CalendarStreams : public StreamsTest {
protected:
    MPPCalendar& addBaseCalendar(const std::string& name) {
        project.baseCalendars.push_back(std::make_shared<MPPCalendar>());
        project.baseCalendars.back()->name = name;
        return *project.baseCalendars.back();
    }
    template <typename Writer>
    bool writeCalendars() {
        preprocess();
        output = std::make_shared<MemoryOutput>();
        return write<Writer>();
    }
    [[nodiscard]] Bytes fixedRow(std::size_t index) const {
        return slice(stream("FixedData"), 16 * kHeaderRows + 12 * (index - kHeaderRows), 12);
    }
    [[nodiscard]] Bytes fixedMeta(std::size_t index) const { return metaRecord(stream("FixedMeta"), 10, index); }
    [[nodiscard]] Bytes fixed2Row(std::size_t index) const { return slice(stream("Fixed2Data"), 48 * index, 48); }
    [[nodiscard]] std::vector<VarMetaRecord> varRecords() const {
        return varMetaRecords(stream("VarMeta"), stream("Var2Data"), 0x0D40);
    }
    /// The block of the only base calendar.
    [[nodiscard]] Bytes blockOfBaseCalendar() const {
        for (const VarMetaRecord& record : varRecords())
            if (record.id == 3 && record.type == 8)
                return record.payload;
        ADD_FAILURE() << "no block";
        return {};
    }
};

TEST_F(CalendarStreams, FourKindsOfCalendarsHaveRows) {
    MPPCalendar& night = addBaseCalendar("Night");
    MPPResource& plain = addResource("plain");
    MPPResource& busy = addResource("busy");
    auto own = std::make_shared<MPPCalendar>();
    own->baseCalendar.setRecord(project.baseCalendars[0]);
    own->exceptions.push_back(std::make_shared<MPPCalendarException>());
    busy.calendar.setRecord(own);
    ASSERT_TRUE(writeCalendars<MPP12CalendarWriter>()) << failureReason;

    EXPECT_EQ(idsAndTypes(varRecords()), "1:1 3:1 3:8 5:8");
    EXPECT_TRUE(sameBytes(varRecords().at(0).payload, ByteImage(18).text(0, "Standard")));
    EXPECT_TRUE(sameBytes(slice(stream("FixedData"), 48, 16), ByteImage(16).word(0, 3).word(2, 0xFFFF)));
    const auto ids = [](std::uint32_t id, std::uint32_t base, std::uint32_t resource) {
        return ByteImage(12).integer(0, id).integer(4, base).integer(8, resource);
    };
    EXPECT_TRUE(sameBytes(fixedRow(kStandardRow), ids(1, 0xFFFFFFFF, 0xFFFFFFFF)));
    EXPECT_TRUE(sameBytes(fixedRow(kDefaultRow), ids(2, 1, 0)));
    EXPECT_TRUE(sameBytes(fixedRow(kFirstOtherRow), ids(3, 0xFFFFFFFF, 0xFFFFFFFF)));
    EXPECT_TRUE(sameBytes(fixedRow(kFirstOtherRow + 1), ids(4, 1, 1)));
    EXPECT_TRUE(sameBytes(fixedRow(kFirstOtherRow + 2), ids(5, 3, 2)));

    const auto meta = [](std::uint32_t start, std::uint32_t offset, std::uint16_t flags) {
        return ByteImage(10).integer(0, start).integer(4, offset).word(8, flags);
    };
    EXPECT_TRUE(sameBytes(fixedMeta(1), meta(4, 16, 32)));
    EXPECT_TRUE(sameBytes(fixedMeta(kStandardRow), meta(0x00010000, 64, 79)));
    EXPECT_TRUE(sameBytes(fixedMeta(kDefaultRow), meta(0, 76, 7)));
    EXPECT_TRUE(sameBytes(fixedMeta(kFirstOtherRow), meta(0x00020000, 88, 335)));
    EXPECT_TRUE(sameBytes(fixedMeta(kFirstOtherRow + 1), meta(0, 100, 7)));
    EXPECT_TRUE(sameBytes(fixedMeta(kFirstOtherRow + 2), meta(0x00010000, 112, 263)));

    const Guid& standard = project.standardCalendar->GUID();
    const Guid& defaultGuid = project.defaultResource()->GUID();
    EXPECT_TRUE(sameBytes(fixed2Row(3), ByteImage(48)));
    EXPECT_TRUE(sameBytes(fixed2Row(kStandardRow), ByteImage(48).guid(0, standard)));
    EXPECT_TRUE(
        sameBytes(fixed2Row(kDefaultRow), ByteImage(48).guid(0, defaultGuid).guid(16, defaultGuid).guid(32, standard)));
    EXPECT_TRUE(sameBytes(fixed2Row(kFirstOtherRow), ByteImage(48).guid(0, night.GUID())));
    EXPECT_TRUE(sameBytes(fixed2Row(kFirstOtherRow + 1),
                          ByteImage(48).guid(0, plain.GUID()).guid(16, plain.GUID()).guid(32, standard)));
    EXPECT_TRUE(sameBytes(fixed2Row(kFirstOtherRow + 2),
                          ByteImage(48).guid(0, busy.GUID()).guid(16, busy.GUID()).guid(32, night.GUID())));

    std::string flags;
    for (std::size_t i = 0; i < 9; ++i)
        flags += std::to_string(metaRecord(stream("Fixed2Meta"), 9, i).at(8)) + " ";
    EXPECT_EQ(flags, "0 0 0 0 23 7 7 7 7 ");
    EXPECT_EQ(stream("Props"), templateStreams["Props"]);
}

TEST_F(CalendarStreams, The2010LayoutLeavesOutTheStandardCalendarsBlockAndProps) {
    project.standardCalendar->exceptions.push_back(std::make_shared<MPPCalendarException>());
    MPPResource& busy = addResource("busy");
    auto own = std::make_shared<MPPCalendar>();
    own->baseCalendar.setRecord(project.standardCalendar);
    own->workWeeks.push_back(std::make_shared<MPPCalendarWorkWeek>());
    busy.calendar.setRecord(own);
    ASSERT_TRUE(writeCalendars<MPP12CalendarWriter>()) << failureReason;
    EXPECT_EQ(idsAndTypes(varRecords()), "1:1 1:8 3:8");
    EXPECT_EQ(wordAt(fixedMeta(kStandardRow), 8), 335);

    ASSERT_TRUE(writeCalendars<MPP14CalendarWriter>()) << failureReason;
    EXPECT_EQ(idsAndTypes(varRecords()), "1:1 3:8");
    EXPECT_EQ(wordAt(fixedMeta(kStandardRow), 8), 79);
    EXPECT_EQ(integerAt(fixedMeta(kFirstOtherRow), 0), 0U);
    EXPECT_EQ(wordAt(fixedMeta(kFirstOtherRow), 8), 263);
    const std::vector<std::string> order{"Var2Data", "VarMeta", "FixedData", "FixedMeta", "Fixed2Data", "Fixed2Meta"};
    EXPECT_EQ(output->created, order);

    // As a resource's own it bears that resource's ID and has a block, but its row stays as it is.
    busy.calendar.setRecord(project.standardCalendar);
    ASSERT_TRUE(writeCalendars<MPP14CalendarWriter>()) << failureReason;
    EXPECT_EQ(idsAndTypes(varRecords()), "3:8 3:8");
    EXPECT_EQ(wordAt(fixedMeta(kStandardRow), 8), 79);
}

TEST_F(CalendarStreams, WhichCalendarsHaveABlock) {
    auto calendar = std::make_shared<MPPCalendar>();
    const auto inBoth = [&](std::uint64_t id) {
        calendar->ID = id;
        return std::pair(MPP12CalendarWriter::calendarDataShouldBeWritten(*calendar),
                         MPP14CalendarWriter::calendarDataShouldBeWritten(*calendar));
    };
    EXPECT_EQ(inBoth(3), std::pair(true, true)) << "a base calendar always has one";
    EXPECT_EQ(inBoth(1), std::pair(false, false));
    calendar->baseCalendar.setRecord(project.standardCalendar);
    calendar->defaultWorkWeek = std::make_shared<MPPCalendarWorkWeek>();
    EXPECT_EQ(inBoth(3), std::pair(false, false));
    calendar->defaultWorkWeek->thursdayWorkRanges = day({}); // an empty list counts
    EXPECT_EQ(inBoth(3), std::pair(true, true));
    EXPECT_EQ(inBoth(1), std::pair(true, false));
    EXPECT_EQ(inBoth(2), std::pair(false, false));
}

TEST_F(CalendarStreams, ABaseCalendarWithNothingOfItsOwnSaysSo) {
    addBaseCalendar("");
    ASSERT_TRUE(writeCalendars<MPP12CalendarWriter>()) << failureReason;
    EXPECT_EQ(idsAndTypes(varRecords()), "1:1 3:8") << "an empty name is none";
    ByteImage expected(7 * 60 + 8);
    for (std::size_t i = 0; i < 7; ++i)
        expected.word(60 * i, 1);
    EXPECT_TRUE(sameBytes(blockOfBaseCalendar(), expected));
}

TEST_F(CalendarStreams, DaysHoldTheirRangesInTenthsOfMinutes) {
    auto week = std::make_shared<MPPCalendarWorkWeek>();
    week->sundayWorkRanges = day({});
    week->mondayWorkRanges = day({range(8, 12)});
    week->tuesdayWorkRanges = day({range(8, 12), range(13, 17)});
    week->wednesdayWorkRanges = day({range(20, 0)});
    week->thursdayWorkRanges = day({range(0, 0)});
    week->fridayWorkRanges = day({range(8, 9), range(12, 10), range(13, 14)}); // the middle one ends before it begins
    week->saturdayWorkRanges = day({range(1, 2), range(3, 4), range(5, 6), range(7, 8), range(9, 9, 30)});
    addBaseCalendar("c").defaultWorkWeek = week;
    ASSERT_TRUE(writeCalendars<MPP12CalendarWriter>()) << failureReason;

    const Bytes block = blockOfBaseCalendar();
    const auto dayBlock = [&](std::size_t index) { return slice(block, 60 * index, 60); };
    EXPECT_TRUE(sameBytes(dayBlock(0), ByteImage(60)));
    EXPECT_TRUE(sameBytes(dayBlock(1),
                          ByteImage(60).word(2, 1).integer(4, 2400).word(8, 4800).integer(20, 2400).integer(40, 2400)));
    ByteImage tuesday(60);
    tuesday.word(2, 2).integer(4, 4800).word(8, 4800).word(10, 7800);
    tuesday.integer(20, 2400).integer(24, 2400).integer(40, 2400).integer(44, 4800);
    EXPECT_TRUE(sameBytes(dayBlock(2), tuesday));
    EXPECT_TRUE(sameBytes(
        dayBlock(3), ByteImage(60).word(2, 1).integer(4, 2400).word(8, 12000).integer(20, 2400).integer(40, 2400)));
    EXPECT_TRUE(
        sameBytes(dayBlock(4), ByteImage(60).word(2, 1).integer(4, 14400).integer(20, 14400).integer(40, 14400)));
    ByteImage friday(60);
    friday.word(2, 3).integer(4, 1200).word(8, 4800).word(10, 7200).word(12, 7800);
    friday.integer(20, 600).integer(28, 600).integer(40, 600).integer(44, 600).integer(48, 1200);
    EXPECT_TRUE(sameBytes(dayBlock(5), friday));
    ByteImage saturday(60);
    saturday.word(2, 5).integer(4, 2700);
    for (std::size_t i = 0; i < 5; ++i) {
        saturday.word(8 + 2U * i, 600 + 1200 * i);
        saturday.integer(20 + 4U * i, i < 4 ? 600 : 300);
        saturday.integer(40 + 4U * i, i < 4 ? 600U * (i + 1U) : 2700);
    }
    EXPECT_TRUE(sameBytes(dayBlock(6), saturday));
}

TEST_F(CalendarStreams, ExceptionsAndWorkWeeksFollowTheWeek) {
    MPPCalendar& calendar = addBaseCalendar("c");
    const auto exception = [&](std::optional<std::string> name) {
        calendar.exceptions.push_back(std::make_shared<MPPCalendarException>());
        calendar.exceptions.back()->name = std::move(name);
        return calendar.exceptions.back();
    };
    exception("ab")->startDate = dateAt(10, 5);
    exception("")->workRanges = {range(8, 12)};
    exception(std::nullopt)->endDate = dateAt(11);
    calendar.workWeeks = {std::make_shared<MPPCalendarWorkWeek>(), std::make_shared<MPPCalendarWorkWeek>()};
    calendar.workWeeks[0]->startDate = dateAt(20);
    calendar.workWeeks[0]->endDate = dateAt(21);
    calendar.workWeeks[0]->mondayWorkRanges = day({});
    calendar.workWeeks[1]->name = "x";
    ASSERT_TRUE(writeCalendars<MPP12CalendarWriter>()) << failureReason;

    const Bytes block = blockOfBaseCalendar();
    constexpr std::size_t kExceptions = 7 * 60;
    EXPECT_EQ(integerAt(block, kExceptions), 3U);
    constexpr std::size_t kFirst = kExceptions + 4;
    // Two characters and a terminator are 6 bytes; 2 more follow.
    ByteImage first(88 + 4 + 6 + 2);
    first.word(0, 10).word(2, 0xFFFF).word(4, 2).integer(72, 1).integer(80, 1).integer(88, 6).text(92, "ab");
    EXPECT_TRUE(sameBytes(slice(block, kFirst, 100), first));
    constexpr std::size_t kSecond = kFirst + 100;
    ByteImage second(88 + 4 + 2 + 2);
    second.word(0, 0xFFFF).word(2, 0xFFFF).word(4, 2);
    second.word(14, 1).integer(16, 2400).word(20, 4800).integer(32, 2400).integer(52, 2400);
    second.integer(72, 1).integer(80, 1).integer(88, 2);
    EXPECT_TRUE(sameBytes(slice(block, kSecond, 96), second));
    constexpr std::size_t kThird = kSecond + 96;
    const ByteImage third = ByteImage(88 + 4).word(0, 0xFFFF).word(2, 11).word(4, 2).integer(72, 1).integer(80, 1);
    EXPECT_TRUE(sameBytes(slice(block, kThird, 92), third));

    constexpr std::size_t kWeeks = kThird + 92;
    EXPECT_EQ(integerAt(block, kWeeks), 2U);
    constexpr std::size_t kWeek = kWeeks + 4;
    EXPECT_EQ(wordAt(block, kWeek), 1);
    EXPECT_EQ(wordAt(block, kWeek + 60), 0);
    EXPECT_EQ(wordAt(block, kWeek + 420), 20);
    EXPECT_EQ(wordAt(block, kWeek + 422), 21);
    EXPECT_EQ(integerAt(block, kWeek + 428), 0U);
    EXPECT_EQ(integerAt(block, kWeek + 432), 0U);
    constexpr std::size_t kSecondWeek = kWeek + 436;
    EXPECT_EQ(integerAt(block, kSecondWeek + 424), integerAt(block, kWeek + 424) + 1) << "numbers rise";
    EXPECT_EQ(integerAt(block, kSecondWeek + 432), 4U);
    EXPECT_EQ(block.size(), kSecondWeek + 436 + 4) << "4 bytes need no padding";
}

TEST_F(CalendarStreams, WorkWeekNumbersGoOnInTheNextExportApartForEachLayout) {
    addBaseCalendar("c").workWeeks.assign(2, std::make_shared<MPPCalendarWorkWeek>());
    const auto firstNumber = [this] { return integerAt(blockOfBaseCalendar(), 420 + 8 + 424); };
    ASSERT_TRUE(writeCalendars<MPP12CalendarWriter>());
    const std::uint32_t first = firstNumber();
    ASSERT_TRUE(writeCalendars<MPP14CalendarWriter>());
    const std::uint32_t first2010 = firstNumber();
    ASSERT_TRUE(writeCalendars<MPP12CalendarWriter>());
    EXPECT_EQ(firstNumber(), first + 2);
    ASSERT_TRUE(writeCalendars<MPP14CalendarWriter>());
    EXPECT_EQ(firstNumber(), first2010 + 2);

    auto tooFull = std::make_shared<MPPCalendarWorkWeek>();
    tooFull->fridayWorkRanges = day(MPPRangeList(6, range(1, 2)));
    project.baseCalendars[0]->workWeeks[1] = tooFull;
    EXPECT_FALSE(writeCalendars<MPP12CalendarWriter>());
    project.baseCalendars[0]->workWeeks.pop_back();
    ASSERT_TRUE(writeCalendars<MPP12CalendarWriter>());
    EXPECT_EQ(firstNumber(), first + 5) << "the week that was not written took no number";
}

TEST_F(CalendarStreams, WorkWeekNumbersBeginAt21InAFreshProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto firstNumberIs21 = [this](bool written) {
        return written && integerAt(blockOfBaseCalendar(), 420 + 8 + 424) == 21;
    };
    addBaseCalendar("c").workWeeks.assign(1, std::make_shared<MPPCalendarWorkWeek>());
    EXPECT_EXIT(std::exit(firstNumberIs21(writeCalendars<MPP12CalendarWriter>()) &&
                                  firstNumberIs21(writeCalendars<MPP14CalendarWriter>())
                              ? 0
                              : 1),
                testing::ExitedWithCode(0), "");
}

TEST_F(CalendarStreams, SixRangesFailInVar2Data) {
    auto exception = std::make_shared<MPPCalendarException>();
    exception->workRanges.assign(6, range(1, 2));
    project.standardCalendar->exceptions = {exception};
    EXPECT_TRUE(writeCalendars<MPP14CalendarWriter>()) << "this layout leaves the block out";
    EXPECT_FALSE(writeCalendars<MPP12CalendarWriter>());
    EXPECT_EQ(failureReason, "TooManyRangesException: Not more than 5 time ranges can be written to a calendar");
    EXPECT_EQ(output->created, std::vector<std::string>{"Var2Data"});
}

} // namespace
} // namespace brackwater::test
