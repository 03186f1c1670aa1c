#include "FileImage.h"

#include "mppinspect/FieldMap.h"
#include "mppinspect/TextTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::inspect {
namespace {

using test::ByteImage;
using testing::Contains;
using testing::HasSubstr;

Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

TEST(Values, DatesCountFromTheLastDayOf1983) {
    EXPECT_EQ(textOf(*dateFrom(0)), "1983-12-31 00:00");
    EXPECT_EQ(textOf(*dateFrom(1U << 16 | 4800)), "1984-01-01 08:00");
    EXPECT_EQ(textOf(*dateFrom(60U << 16 | 5)), "1984-02-29 00:00:30");
    EXPECT_EQ(dateFrom(0xFFFFFFFF), std::nullopt);
    EXPECT_EQ(textOf(*dateFrom(0xFFFFU << 16 | 14400)), "2163-06-05 +14400 tenths of a minute");
}

TEST(Values, DurationsAreShownInTheirUnit) {
    constexpr WorkingUnits units{480, 2400, 20};
    EXPECT_EQ(textOf(Duration{4800, 7}, units), "1d");
    EXPECT_EQ(textOf(Duration{14400, 8}, units), "1ed");
    EXPECT_EQ(textOf(Duration{-900, 5}, units), "-1.5h");
    EXPECT_EQ(textOf(Duration{24000, 9 + 0x20}, units), "1w?");
    EXPECT_EQ(textOf(Duration{96000, 11}, units), "1mon");
    EXPECT_EQ(textOf(Duration{25, 19}, units), "25%");
    EXPECT_EQ(textOf(Duration{4800, 7}, {}), "480min (unit 7)");
    EXPECT_EQ(textOf(Duration{10, 99}, units), "1min (unit 67)?");
}

TEST(Values, NumbersDropZeroesAtTheirEnd) {
    EXPECT_EQ(numberText(1200), "1200");
    EXPECT_EQ(numberText(1.25), "1.25");
    EXPECT_EQ(numberText(-0.0001), "0");
    EXPECT_EQ(numberText(1e300), "1e+300");
    EXPECT_EQ(numberText(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(Texts, OfUtf16KeepPairsAndReplaceWhatIsNone) {
    const ByteImage pair = ByteImage().word(0, 0xD83C).word(2, 0xDFE0).word(4, 0x43F).word(6, 0);
    EXPECT_EQ(ByteView(pair.bytes()).text16(), "\U0001F3E0п");
    const ByteImage lone = ByteImage().word(0, 0xD83C).word(2, 'a').word(4, 0xDFE0).word(6, 0xD83C);
    EXPECT_EQ(ByteView(lone.bytes()).text16(), "\uFFFDa\uFFFD\uFFFD");
    EXPECT_EQ(ByteView(bytesOf("a")).text16(), "");
}

TEST(Texts, OfCodePagesAreConverted) {
    EXPECT_EQ(fromCodePage("\xCF\xEB\xE0\xED", 1251), "План");
    EXPECT_EQ(fromCodePage("caf\xE9", 1252), "café");
    EXPECT_EQ(fromCodePage("caf\xE9", 99999), "caf\uFFFD");
}

TEST(Notes, LoseTheFrameOfTheirRtf) {
    EXPECT_EQ(
        textOfRtf(bytesOf("{\\rtf1\\ansi\\ansicpg1251\\deff0\\deflang1049{\\fonttbl{\\f0\\fswiss\\fprq2\\fcharset0 "
                          "Arial;}{\\f1\\fswiss\\fprq2\\fcharset204{\\*\\fname Arial;}Arial CYR;}}\r\n{\\*\\generator "
                          "Riched2012.0.6413.1000;}\\viewkind4\\uc1\r\n\\pard\\f0\\fs16\\lang1033 Mind the "
                          "gap\\f1\\lang1049\\par\r\n}\r\n")),
        "Mind the gap");
    EXPECT_EQ(textOfRtf(bytesOf("{\\rtf1\\ansicpg1251 \\'cf\\'eb\\'e0\\'ed\\par two\\tab\\{3\\}\\u8364?}")),
              "План\ntwo\t{3}€");
    EXPECT_EQ(textOfRtf(bytesOf("plain \\par")), "plain \\par");
}

TEST(Notes, OfBrokenRtfEndWithoutHarm) {
    EXPECT_EQ(textOfRtf(bytesOf("{\\rtf1 a\\")), "a");
    EXPECT_EQ(textOfRtf(bytesOf("{\\rtf1 a\\'g}}}} b")), "ag b");
    EXPECT_EQ(textOfRtf(bytesOf("{\\rtf1 \\u-10179\\'3f\\u-8704\\'3f\\u-8704?}")), "\U0001F600\uFFFD");
    EXPECT_EQ(textOfRtf(bytesOf("{\\rtf1 a\\u-99999999999999999999 b")), "a\uFFFDb");
    EXPECT_EQ(textOfRtf(bytesOf("{\\rtf1 a" + std::string(100000, '{'))), "a");
}

TEST(Props, AreReadWithTheirPadding) {
    Complaints complaints;
    const Bytes stream = test::propsImage({{1, bytesOf("abc")}, {2, bytesOf("de")}});
    const PropsFrame props(stream, "Props", complaints);
    EXPECT_EQ(props.magic(), 0x11528U);
    EXPECT_EQ(props.payload(1).size(), 3U);
    EXPECT_EQ(props.payload(2).text8(1252), "de");
    EXPECT_EQ(props.find(3), nullptr);
    EXPECT_TRUE(complaints.empty());
}

TEST(Props, WithRubbishInTheUpperHalfOfTheCountAreRead) {
    Complaints complaints;
    Bytes stream = test::propsImage({{1, bytesOf("ab")}});
    stream.at(14) = 0xAD;
    EXPECT_EQ(PropsFrame(stream, "Props", complaints).properties().size(), 1U);
}

TEST(Props, OneTypeHasItsSizeInTheThirdWord) {
    Complaints complaints;
    Bytes stream = test::propsImage({{0x3540000B, bytesOf("abcd")}, {2, bytesOf("ef")}});
    stream.at(16) = 1;
    stream.at(16 + 8) = 4;
    EXPECT_EQ(PropsFrame(stream, "Props", complaints).payload(2).text8(1252), "ef");
}

TEST(Props, ThatRunPastTheEndAreTold) {
    const auto complaintsOf = [](const Bytes& stream) {
        Complaints complaints;
        const PropsFrame props(stream, "Props", complaints);
        return complaints.lines();
    };
    Bytes stream = test::propsImage({{1, bytesOf("ab")}});
    stream.at(19) = 0xFF; // the size of the property
    EXPECT_THAT(complaintsOf(stream),
                Contains("Props: a property runs past the end of the stream: property 0 of type 0x00000001"));
    EXPECT_THAT(complaintsOf(Bytes(15)), Contains("Props: shorter than the header of a property stream"));
    stream = test::propsImage({});
    stream.at(12) = 7;
    EXPECT_THAT(complaintsOf(stream), Contains("Props: fewer properties than counted: 0 of 7"));
    EXPECT_THAT(complaintsOf(test::propsImage({{5, {}}})), Contains(HasSubstr("an empty property ends the reading")));
}

TEST(PropertySets, ShowTextsInTheirCodePage) {
    ByteImage set(48);
    set.word(0, 0xFFFE).integer(24, 1).integer(44, 48).integer(48, 60).integer(52, 3);
    set.integer(56, 1).integer(60, 32).integer(64, 2).integer(68, 40).integer(72, 3).integer(76, 9000);
    set.integer(80, 2).integer(84, 1251).integer(88, 30).integer(92, 2).word(96, 0x00CF);
    Complaints complaints;
    const auto values = readPropertySet(set.bytes(), "Summary", complaints);
    ASSERT_EQ(values.size(), 2U);
    EXPECT_EQ(values[1].text, "П");
    EXPECT_THAT(complaints.lines(), Contains("Summary: a value stands outside the stream: property 3"));
}

TEST(Maps, BeginTheirSecondBlockWhereAnOffsetFalls) {
    using Map = test::MapImage;
    Complaints complaints;
    const FieldMap map(Map()
                           .fixed(0, 1, Map::kNumber32)
                           .flag(2)
                           .fixed(4, 3, Map::kGuid)
                           .variable(4)
                           .fixed(0, 5, Map::kDouble)
                           .fixed(8, 6, Map::kNumber16)
                           .bytes(),
                       "map", complaints);
    EXPECT_EQ(map.firstSize(), 20U);
    EXPECT_EQ(map.secondSize(), 10U);
    EXPECT_EQ(map.firstRows(), 4U);
    EXPECT_EQ(map.find(6)->where, FieldPlace::Where::SecondBlock);
    EXPECT_EQ(map.find(2)->where, FieldPlace::Where::Flag);
    EXPECT_EQ(map.find(7), nullptr);
    EXPECT_TRUE(complaints.empty());
}

TEST(Maps, ThatNameAFieldTwiceOrEndInARowAreTold) {
    Bytes map = test::MapImage().variable(4).variable(4).bytes();
    map.push_back(0);
    Complaints complaints;
    EXPECT_EQ(FieldMap(map, "map", complaints).places().size(), 1U);
    EXPECT_EQ(complaints.lines(), (std::vector<std::string>{"map: the field map ends inside a row",
                                                            "map: the field map names a field twice: field 4"}));
}

TEST(Tables, AlignByCharactersAndLeaveOutEmptyColumns) {
    TextTable table(
        {{"id", TextTable::Side::Right}, {"nothing", TextTable::Side::Left}, {"name", TextTable::Side::Left}});
    table.add({"7", "", "Дом"});
    table.add({"12", "", "a"});
    std::string text;
    table.appendTo(text);
    EXPECT_EQ(text, "id  name\n--  ----\n 7  Дом\n12  a\n");
}

TEST(Guids, HaveTheirFirstThreeGroupsWithTheLowestByteFirst) {
    Guid guid;
    for (std::size_t i = 0; i < guid.size(); ++i)
        guid.at(i) = static_cast<std::uint8_t>(i);
    EXPECT_EQ(textOf(guid), "03020100-0504-0706-0809-0A0B0C0D0E0F");
}

TEST(Tables, FitAWidthByCuttingTextsAndLeavingOutColumns) {
    using enum TextTable::Side;
    TextTable table({{"id", Right}, {"name", Tree}, {"type", Left, 2}, {"cost", Right, 1}});
    table.add({"7", "Foundations and walls", "fixed duration", "1200"}, 2);
    table.add({"8", "日本語の長い名前です", "fixed work", "1"});
    const auto at = [&table](std::size_t width) {
        std::string text;
        table.appendTo(text, width);
        return text;
    };
    EXPECT_EQ(at(28), "id  name                cost\n--  ------------------  ----\n 7    Foundations and…  1200\n"
                      " 8  日本語の長い名前…      1\nNot shown for want of room: type\n");
    EXPECT_EQ(at(12), "id  name\n--  --------\n 7    Found…\n 8  日本語…\nNot shown for want of room: type, cost\n");
    std::string csv;
    table.appendCsv(csv);
    EXPECT_EQ(csv, "id,name,type,cost\r\n7,Foundations and walls,fixed duration,1200\r\n"
                   "8,日本語の長い名前です,fixed work,1\r\n");
}

TEST(Tables, QuoteAndDefuseTextsInCommaSeparatedValues) {
    TextTable table({{"lag", TextTable::Side::Right}, {"name", TextTable::Side::Left}});
    table.add({"-2d", "=HYPERLINK(\"x\")"});
    table.add({"1d", "two\nlines"});
    std::string csv;
    table.appendCsv(csv);
    EXPECT_EQ(csv, "lag,name\r\n-2d,\"'=HYPERLINK(\"\"x\"\")\"\r\n1d,\"two\nlines\"\r\n");
}

TEST(Tables, ShowCharactersThatATerminalObeysAsEscapes) {
    EXPECT_EQ(printable("a\x1b[2J\nb\tc"), "a\\x1b[2J\\nb c");
    EXPECT_EQ(printable("\u009b2J \u202e \u2066 \u2028 \u200f é\xff"),
              "\\u009b2J \\u202e \\u2066 \\u2028 \\u200f é\xEF\xBF\xBD");
}

} // namespace
} // namespace brackwater::inspect
