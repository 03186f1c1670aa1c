#include "mppinspect/JsonReport.h"
#include "mppinspect/JsonWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace brackwater::test {
namespace {

using inspect::JsonWriter;
using testing::HasSubstr;

template <typename Content>
std::string written(const Content& content) {
    std::string text;
    JsonWriter json([&text](std::string_view piece) { text += piece; });
    content(json);
    json.finish();
    return text;
}

std::string quoted(std::string_view text) {
    return written([text](JsonWriter& json) { json.text(text); });
}

std::string reportOf(const inspect::ProjectFile& project) {
    std::string text;
    writeJson(project, [&text](std::string_view piece) { text += piece; });
    return text;
}

TEST(JsonWriting, NestsAndSeparates) {
    const std::string text = written([](JsonWriter& json) {
        json.beginObject();
        json.key("empty");
        json.beginArray();
        json.endArray();
        json.key("list");
        json.beginArray();
        json.number(std::int64_t{-5});
        json.boolean(true);
        json.null();
        json.endArray();
        json.endObject();
    });
    EXPECT_EQ(text, "{\n  \"empty\": [],\n  \"list\": [\n    -5,\n    true,\n    null\n  ]\n}\n");
}

TEST(JsonWriting, EscapesWhatTextsMayNotHold) {
    EXPECT_EQ(quoted("a\"b\\c\nd\te\x7F"), "\"a\\\"b\\\\c\\nd\\u0009e\\u007f\"\n");
    EXPECT_EQ(quoted(std::string_view("\0x", 2)), "\"\\u0000x\"\n");
    EXPECT_EQ(quoted("Füße 家 🏠 </script>"), "\"Füße 家 🏠 </script>\"\n");
}

TEST(JsonWriting, ReplacesWhatIsNoUtf8ByteByByte) {
    const std::string replaced = "\xEF\xBF\xBD";
    EXPECT_EQ(quoted("a\xFFz"), "\"a" + replaced + "z\"\n");
    EXPECT_EQ(quoted("\xC3"), "\"" + replaced + "\"\n");                               // cut off
    EXPECT_EQ(quoted("\xC0\xAF"), "\"" + replaced + replaced + "\"\n");                // longer than needed
    EXPECT_EQ(quoted("\xED\xA0\x80"), "\"" + replaced + replaced + replaced + "\"\n"); // half a pair
    EXPECT_EQ(quoted("\xF4\x90\x80\x80"), "\"" + replaced + replaced + replaced + replaced + "\"\n"); // beyond
}

TEST(JsonWriting, KeepsNumbersWholeAndLeavesOutWhatIsNone) {
    const auto number = [](double value) { return written([value](JsonWriter& json) { json.number(value); }); };
    EXPECT_EQ(number(0.1), "0.1\n");
    EXPECT_EQ(number(1.0 / 3), "0.3333333333333333\n");
    EXPECT_EQ(number(-0.0), "0\n");
    EXPECT_EQ(number(1e300), "1e+300\n");
    EXPECT_EQ(number(std::numeric_limits<double>::quiet_NaN()), "null\n");
    EXPECT_EQ(number(-std::numeric_limits<double>::infinity()), "null\n");
}

TEST(JsonReport, TellsPercentagesFromMinutes) {
    inspect::ProjectFile project;
    project.links.resize(2);
    project.links[0].lag = {-25, 19};
    project.links[1].lag = {4805, 7 + 0x20};
    const std::string text = reportOf(project);
    EXPECT_THAT(text, HasSubstr("\"minutes\": null,\n        \"percent\": -25,\n        \"unit\": \"%\",\n"
                                "        \"estimated\": false\n"));
    EXPECT_THAT(text, HasSubstr("\"minutes\": 480.5,\n        \"percent\": null,\n        \"unit\": \"d\",\n"
                                "        \"estimated\": true\n"));
}

TEST(JsonReport, TellsFreeDaysFromInheritedOnes) {
    inspect::ProjectFile project;
    project.calendars.resize(1);
    project.calendars[0].week[1].emplace();
    project.calendars[0].week[2].emplace({inspect::TimeRange{13'200, 14'400}});
    const std::string text = reportOf(project);
    EXPECT_THAT(text, HasSubstr("\"sunday\": null,\n        \"monday\": [],\n        \"tuesday\": [\n"));
    EXPECT_THAT(text, HasSubstr("\"start\": \"22:00\",\n            \"end\": \"24:00\""));
}

TEST(JsonReport, PutsATimeBeyondMidnightOnTheNextDay) {
    EXPECT_EQ(inspect::isoText({15'402, 4'801}), "2026-03-02T08:00:06");
    EXPECT_EQ(inspect::isoText({15'402, 14'400 + 10}), "2026-03-03T00:01:00");
    EXPECT_EQ(inspect::isoText({65'535, 65'535}), "2163-06-09T13:13:30");
}

} // namespace
} // namespace brackwater::test
