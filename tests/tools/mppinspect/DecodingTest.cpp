#include "FileImage.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

// Offsets of these maps are made up: what is shown must follow the file's map, not a layout of the program's own.
class TaskRows : public testing::Test {
protected:
    TaskRows() {
        replaceMap(MapImage()
                       .fixed(2, 86, MapImage::kNumber32)
                       .fixed(6, 160, MapImage::kNumber32)
                       .variable(14)
                       .fixed(10, 35, MapImage::kDate)
                       .fixed(14, 29, MapImage::kNumber32)
                       .flag(24)
                       .fixed(18, 181, MapImage::kNumber16)
                       .fixed(20, 0, MapImage::kScaled)
                       .variable(51)
                       .variable(15)
                       .fixed(0, 1145, MapImage::kDouble));
        _file["TBkndTask"].headers(3, 8);
    }

    void replaceMap(const MapImage& map) {
        std::erase_if(_file.properties, [](const auto& property) { return property.first == 0x00020014; });
        _file.properties.emplace_back(0x00020014, map.bytes());
    }

    static ByteImage rowOf(std::uint32_t id, std::uint32_t parent) {
        return ByteImage(28).integer(2, id).integer(6, parent).integer(10, 0xFFFFFFFF);
    }
    void add(std::uint32_t id, std::uint32_t parent, double place) {
        _file["TBkndTask"].row(rowOf(id, parent), ByteImage(8).real(0, place));
    }
    std::vector<std::string> complaints() { return _file.decoded().complaints.lines(); }

    FileImage _file;
};

TEST_F(TaskRows, AreReadWhereTheMapOfTheFileSays) {
    _file["TBkndTask"]
        .row(rowOf(5, 0xFFFFFFFF)
                 .word(12, 15402) // days: 2026-03-02
                 .word(10, 4800)
                 .integer(14, 7200)
                 .word(18, 7 + 0x20)
                 .real(20, 720000),
             ByteImage(8).real(0, 4), {5})
        .element(5, 14, text16("Walls"))
        .element(5, 51, text16("north"));
    const inspect::ProjectFile project = _file.decoded();
    ASSERT_EQ(project.tasks.size(), 1U);
    const inspect::Task& task = project.tasks[0];
    EXPECT_EQ(task.uniqueId, 5U);
    EXPECT_FALSE(task.parentId);
    EXPECT_EQ(task.title, "Walls");
    EXPECT_EQ(inspect::textOf(task.start), "2026-03-02 08:00");
    EXPECT_EQ(inspect::textOf(task.duration, project.units), "1.5d?");
    EXPECT_EQ(inspect::workText(task.work), "12h");
    EXPECT_TRUE(task.milestone);
    EXPECT_EQ(task.placeInSheet, 4.0);
    EXPECT_EQ(task.texts.at(1), "north");
    EXPECT_FALSE(task.finish);
}

TEST_F(TaskRows, OfAnUnnamedFieldAreAComplaintNotAGuess) {
    add(1, 0xFFFFFFFF, 1);
    EXPECT_THAT(complaints(),
                Contains(HasSubstr("the field map does not name a field: cost (5), constraint type (17)")));
    EXPECT_EQ(_file.decoded().tasks.at(0).finish, std::nullopt);
}

TEST_F(TaskRows, ThatAreTooShortForTheMapAreDropped) {
    _file["TBkndTask"].row(ByteImage(27).integer(2, 7), ByteImage(8)).row(ByteImage(16), ByteImage(8));
    add(1, 0xFFFFFFFF, 1);
    _file["TBkndTask"].row(ByteImage(17).integer(2, 0).word(14, 4800), ByteImage(8)); // the project's own
    const inspect::ProjectFile project = _file.decoded();
    ASSERT_EQ(project.tasks.size(), 2U);
    EXPECT_EQ(project.tasks[1].uniqueId, 0U);
    EXPECT_EQ(project.tasks[1].duration.tenths, 0);
    EXPECT_TRUE(project.complaints.mention("what is missing counts as zero"));
    EXPECT_EQ(project.blankTaskRows, 1U);
    EXPECT_THAT(project.complaints.lines(),
                Contains("TBkndTask: a row is shorter than the 28 bytes that the field map needs: readers drop it: row "
                         "3 of 27"));
}

TEST_F(TaskRows, ThatAreMarkedDeletedAreLeftOut) {
    _file["TBkndTask"].row(rowOf(1, 0xFFFFFFFF), ByteImage(8), {}, 2);
    EXPECT_TRUE(_file.decoded().tasks.empty());
}

TEST_F(TaskRows, FormAnOutlineByTheirParents) {
    add(0, 0xFFFFFFFF, 1);
    add(3, 2, 2);
    add(2, 0, 3);
    add(4, 9, 4);
    const inspect::ProjectFile project = _file.decoded();
    EXPECT_EQ(project.tasks.at(1).depth, 2);
    EXPECT_EQ(project.tasks.at(2).depth, 1);
    EXPECT_THAT(project.complaints.lines(), Contains("TBkndTask: a task's parent is missing: task 4 below 9"));
}

TEST_F(TaskRows, ThatStandBelowThemselvesAreTold) {
    add(1, 2, 1);
    add(2, 1, 2);
    EXPECT_THAT(complaints(), Contains("TBkndTask: a task stands below itself: task 1, task 2"));
}

TEST_F(TaskRows, WithRepeatedPlacesAndIdsAreTold) {
    add(1, 0xFFFFFFFF, 2);
    add(1, 0xFFFFFFFF, 2);
    EXPECT_THAT(complaints(), Contains(HasSubstr("places in the sheet repeat")));
    EXPECT_THAT(complaints(), Contains("TBkndTask: two rows have the same unique id: 1"));
}

TEST_F(TaskRows, WithoutAMapCannotBeRead) {
    _file.properties.erase(_file.properties.end() - 1);
    add(1, 0xFFFFFFFF, 1);
    const inspect::ProjectFile project = _file.decoded();
    EXPECT_TRUE(project.tasks.empty());
    EXPECT_THAT(project.complaints.lines(), Contains("TBkndTask: no field map: its rows cannot be read"));
}

TEST_F(TaskRows, WithAFlagAtAnotherBitThanReadersLookAtAreTold) {
    replaceMap(MapImage().flag(24).fixed(0, 86, MapImage::kNumber32));
    EXPECT_THAT(complaints(), Contains("TBkndTask: the field map has a flag at another bit than readers look at: field "
                                       "24 at 0 instead of 5"));
}

TEST_F(TaskRows, NameTheirTextFields) {
    ByteImage names;
    names.integer(0, 0).integer(4, 0).integer(8, 2);
    names.word(12, 51).integer(16, 24).word(20, 336).integer(24, 34); // offsets count from the fifth byte
    names.text(28, "Side").text(38, "Last");
    _file["TBkndTask"].props = propsImage({{0x04400001, names.bytes()}});
    EXPECT_EQ(_file.decoded().taskTextNames, (std::map<std::size_t, std::string>{{1, "Side"}, {30, "Last"}}));
}

TEST_F(TaskRows, WithNamesOutsideTheirBlockAreTold) {
    const ByteImage names = ByteImage(20).integer(8, 3).word(12, 51).integer(16, 5000);
    _file["TBkndTask"].props = propsImage({{0x04400001, names.bytes()}});
    EXPECT_THAT(complaints(), Contains("TBkndTask/Props: fewer field names than counted: 1 of 3"));
    EXPECT_THAT(complaints(), Contains("TBkndTask/Props: a field name stands outside its block: field 51"));
}

TEST(Rows, WhoseOffsetIsOutsideTheDataHaveNoRow) {
    FileImage file;
    file["TBkndCons"].row(ByteImage(20), ByteImage(48));
    file["TBkndCons"].fixedMeta.at(4) = 20;
    const auto lines = file.decoded().complaints.lines();
    EXPECT_THAT(lines,
                Contains("TBkndCons/FixedMeta: a record has no row: its offset is outside the data: record 0 at 20"));
}

TEST(Rows, EndWhereTheNextOneBegins) {
    FileImage file;
    file["TBkndCons"]
        .row(ByteImage(20).integer(0, 1).integer(4, 7).integer(8, 8), ByteImage(48))
        .row(ByteImage(19), ByteImage(48));
    const inspect::ProjectFile project = file.decoded();
    ASSERT_EQ(project.links.size(), 1U);
    EXPECT_THAT(project.complaints.lines(), Contains("TBkndCons: a row is shorter than a link: row 1"));
}

TEST(Elements, ThatStandOutsideTheirStreamOrBelongToNobodyAreTold) {
    FileImage file;
    file["TBkndCal"].element(9, 1, text16("Lost")).element(1, 1, text16("Cut"));
    file["TBkndCal"].var2Data.resize(file["TBkndCal"].var2Data.size() - 1);
    const auto lines = file.decoded().complaints.lines();
    EXPECT_THAT(lines, Contains("TBkndCal/Var2Data: an element stands outside the stream: type 1 of 1 at 14"));
    EXPECT_THAT(lines, Contains("TBkndCal/VarMeta: an element belongs to no row: type 1 of 9"));
}

TEST(Resources, AreOfAKindByTheirFlags) {
    FileImage file;
    MapImage map;
    map.fixed(0, 27, MapImage::kNumber32).fill(9).flag(298).fixed(8, 4, MapImage::kScaled);
    map.fixed(0, 728, MapImage::kGuid).fill(15).flag(735);
    std::erase_if(file.properties, [](const auto& property) { return property.first == 0x00020015; });
    file.properties.emplace_back(0x00020015, map.bytes());
    auto& rows = file["TBkndRsc"];
    rows.headers(3, 16);
    rows.row(ByteImage(16).integer(0, 1), ByteImage(16), {9});
    rows.row(ByteImage(16).integer(0, 2), ByteImage(16)).secondBits({4});
    rows.row(ByteImage(16).integer(0, 3), ByteImage(16));
    rows.element(1, 1, text16("Ann")).element(2, 1, text16("Fee"));
    file["TBkndCal"].row(ByteImage(12).integer(0, 7).integer(4, 1).integer(8, 2), ByteImage(48));
    const inspect::ProjectFile project = file.decoded();
    ASSERT_EQ(project.resources.size(), 3U);
    EXPECT_EQ(project.resources[0].kind, inspect::ResourceKind::Work);
    EXPECT_EQ(project.resources[1].kind, inspect::ResourceKind::Cost);
    EXPECT_EQ(project.resources[2].kind, inspect::ResourceKind::Material);
    EXPECT_EQ(project.resources[1].calendarId, 7U);
    EXPECT_THAT(project.complaints.lines(),
                Contains("TBkndRsc: a resource without elements in Var2Data: readers drop it: row 5"));
}

TEST(Assignments, OfAMissingTaskOrResourceAreTold) {
    FileImage file;
    std::erase_if(file.properties, [](const auto& property) { return property.first == 0x00020017; });
    file.properties.emplace_back(0x00020017, MapImage()
                                                 .fixed(0, 0, MapImage::kNumber32)
                                                 .fixed(4, 1, MapImage::kNumber32)
                                                 .fixed(8, 2, MapImage::kNumber32)
                                                 .bytes());
    file["TBkndAssn"]
        .row(ByteImage(12).integer(0, 1).integer(4, 6).integer(8, 0xFFFF0001), ByteImage())
        .row(ByteImage(12).integer(0, 2).integer(4, 6).integer(8, 5), ByteImage())
        .row(ByteImage(12).integer(0, 3), ByteImage(), {}, 1)
        .element(1, 634, ByteImage(4).bytes());
    const inspect::ProjectFile project = file.decoded();
    ASSERT_EQ(project.assignments.size(), 2U);
    EXPECT_FALSE(project.assignments[0].resourceId);
    const auto lines = project.complaints.lines();
    EXPECT_THAT(lines,
                Contains("TBkndAssn: an assignment's task is missing: readers drop it: assignment 1, assignment 2"));
    EXPECT_THAT(lines, Contains("TBkndAssn: an assignment's resource is missing: assignment 2"));
    EXPECT_THAT(lines, Contains("TBkndAssn: an assignment without elements in Var2Data: readers drop it: row 1"));
}

TEST_F(TaskRows, WithLinksThatReadersDropAreTold) {
    add(0, 0xFFFFFFFF, 1);
    add(1, 0, 2);
    add(2, 1, 3);
    add(3, 0, 4);
    const auto link = [](std::uint32_t id, std::uint32_t from, std::uint32_t to) {
        return ByteImage(20).integer(0, id).integer(4, from).integer(8, to).word(12, 1).word(14, 7).integer(16, 4800);
    };
    auto& rows = _file["TBkndCons"];
    rows.row(link(1, 2, 3), ByteImage(48)).row(link(2, 3, 3), ByteImage(48)).row(link(3, 0, 3), ByteImage(48));
    rows.row(link(4, 1, 2), ByteImage(48)).row(link(5, 2, 1), ByteImage(48)).row(link(6, 2, 8), ByteImage(48));
    const inspect::ProjectFile project = _file.decoded();
    EXPECT_EQ(project.links.size(), 6U);
    EXPECT_EQ(inspect::textOf(project.links[0].lag, project.units), "1d");
    const auto lines = project.complaints.lines();
    EXPECT_THAT(lines, Contains("TBkndCons: a link from a task to itself: readers drop it: link 2 from 3 to 3"));
    EXPECT_THAT(lines, Contains("TBkndCons: a link to the project's row: readers drop it: link 3 from 0 to 3"));
    EXPECT_THAT(lines, Contains("TBkndCons: a link from a task above: readers drop it: link 4 from 1 to 2"));
    EXPECT_THAT(lines, Contains("TBkndCons: a link to a task that is missing: readers drop it: link 6 from 2 to 8"));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("link 5"))));
}

class CalendarRows : public testing::Test {
protected:
    void add(std::uint32_t id, std::uint32_t base, std::uint32_t resource) {
        _file["TBkndCal"].row(ByteImage(12).integer(0, id).integer(4, base).integer(8, resource), ByteImage(48));
    }
    FileImage _file;
};

TEST_F(CalendarRows, HoldWeeksAndExceptions) {
    add(1, 0xFFFFFFFF, 0xFFFFFFFF);
    ByteImage hours(420);
    for (std::size_t day = 1; day < 7; ++day)
        hours.word(day * 60, 1);
    hours.word(2, 1).integer(4, 2400).word(8, 4800).integer(20, 2400).integer(40, 2400); // Sunday 8:00 to 12:00
    hours.integer(420, 1).word(424, 15402).word(426, 15403).word(428, 2).integer(511, 0);
    hours.integer(512, 10).text(516, "Fair").word(526, 0).integer(528, 0);
    _file["TBkndCal"].element(1, 1, text16("Base")).element(1, 8, hours.bytes());
    const inspect::ProjectFile project = _file.decoded();
    ASSERT_EQ(project.calendars.size(), 1U);
    const inspect::Calendar& calendar = project.calendars[0];
    EXPECT_EQ(calendar.name, "Base");
    ASSERT_TRUE(calendar.week[0]);
    EXPECT_EQ(calendar.week[0]->at(0).end, 7200U);
    EXPECT_FALSE(calendar.week[1]);
    ASSERT_EQ(calendar.exceptions.size(), 1U);
    EXPECT_EQ(calendar.exceptions[0].name, "Fair");
    EXPECT_EQ(inspect::dayText(calendar.exceptions[0].firstDay), "2026-03-02");
    EXPECT_THAT(project.complaints.lines(), Not(Contains(HasSubstr("TBkndCal"))));
}

struct RecurringCase {
    unsigned form, first, second, every, occurrences;
    const char* text;
    const char* days;
};

// All from Thursday, 2026-01-01, to the end of 2027.
TEST_F(CalendarRows, HoldExceptionsThatRecur) {
    const std::vector<RecurringCase> cases{
        {1, 0x6E, 0, 0, 3, "", ""}, // every day; the rest is rubbish in real files
        {7, 3, 0, 0x74, 3, "every 3 days", "2026-01-01 2026-01-04 2026-01-07"},
        {6, 0x42, 0x58, 2, 3, "every 2 weeks on Mon, Sat", "2026-01-03 2026-01-12 2026-01-17"},
        {5, 4, 8, 2, 2, "last Fri of every 2 months", "2026-01-30 2026-03-27"},
        {5, 0, 3, 1, 2, "1st Sun of every month", "2026-01-04 2026-02-01"},
        {4, 31, 0, 1, 2, "day 31 of every month", "2026-01-31 2026-03-31"},
        {3, 2, 1, 5, 2, "2nd Tue of every Mar", "2026-03-10 2027-03-09"},
        {2, 1, 28, 0, 9, "every Feb 28", "2026-02-28 2027-02-28"},
        {6, 0, 0, 1, 9, "", ""}, // no weekday
        {9, 0, 0, 1, 9, "", ""}, // an unknown form
    };
    add(1, 0xFFFFFFFF, 0xFFFFFFFF);
    ByteImage hours(420);
    hours.integer(420, cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const RecurringCase& it = cases[i];
        const std::size_t at = 424 + i * 92;
        hours.word(at, 15'342).word(at + 2, 16'071).word(at + 4, it.occurrences).integer(at + 72, it.form);
        hours.byte(at + 76, it.first).byte(at + 77, it.second).word(at + 78, it.every).integer(at + 88, 0);
    }
    _file["TBkndCal"].element(1, 1, text16("Base")).element(1, 8, hours.bytes());
    const inspect::ProjectFile project = _file.decoded();
    const auto& exceptions = project.calendars.at(0).exceptions;
    ASSERT_EQ(exceptions.size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto& recurrence = exceptions[i].recurrence;
        std::string days;
        if (recurrence)
            for (const auto day : daysOf(*recurrence, exceptions[i].firstDay, exceptions[i].lastDay))
                days += (days.empty() ? "" : " ") + inspect::dayText(day);
        EXPECT_EQ(recurrence ? textOf(*recurrence) : "", cases[i].text);
        EXPECT_EQ(days, cases[i].days) << cases[i].text;
    }
    EXPECT_THAT(project.complaints.lines(), Contains("TBkndCal: how an exception recurs is not understood: it is "
                                                     "taken for every day: calendar 1, calendar 1"));
}

TEST_F(CalendarRows, WithABlockThatEndsTooEarlyKeepWhatIsThere) {
    add(1, 0xFFFFFFFF, 0xFFFFFFFF);
    _file["TBkndCal"].element(1, 1, text16("Base")).element(1, 8, ByteImage(424).integer(420, 1000000).bytes());
    const inspect::ProjectFile project = _file.decoded();
    EXPECT_TRUE(project.calendars.at(0).hasOwnHours);
    EXPECT_THAT(project.complaints.lines(),
                Contains("TBkndCal: a calendar's block of working times is cut off: calendar 1"));
}

TEST_F(CalendarRows, WithABaseThatIsMissingOrNamelessAreTold) {
    add(1, 0xFFFFFFFF, 0xFFFFFFFF);
    add(2, 1, 0xFFFFFFFF);
    add(3, 8, 0xFFFFFFFF);
    const auto lines = _file.decoded().complaints.lines();
    EXPECT_THAT(lines, Contains("TBkndCal: a calendar's base has no name: readers drop it: calendar 2 of base 1"));
    EXPECT_THAT(lines, Contains("TBkndCal: a calendar's base is missing: readers drop it: calendar 3 of base 8"));
    EXPECT_THAT(lines, Contains("TBkndCal: a base calendar without a name: calendar 1"));
}

TEST(Complaints, OfAThousandRowsAreOneLine) {
    inspect::Complaints complaints;
    for (int i = 0; i < 1000; ++i)
        complaints.add("TBkndTask", "odd", fmt::format("row {}", i));
    EXPECT_EQ(complaints.lines(),
              std::vector<std::string>{"TBkndTask: odd: row 0, row 1, row 2, row 3, row 4 (1000 in all)"});
}

} // namespace
} // namespace brackwater::test
