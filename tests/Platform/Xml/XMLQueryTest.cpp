#include "Platform/Xml/XMLQuery.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace brackwater {
namespace {

using Form = XMLQuery::Form;

TEST(XMLQuery, SixFormsAreParsedWhenTheProgramIsCompiled) {
    constexpr XMLQuery child = "schedule-day";
    static_assert(child.form() == Form::Child && child.name() == "schedule-day");
    constexpr XMLQuery path = "project/title";
    static_assert(path.form() == Form::ChildPath && path.first() == "project" && path.name() == "title");
    constexpr XMLQuery anyDepth = "//project/currency-format";
    static_assert(anyDepth.form() == Form::AnyDepth && anyDepth.first() == "project" &&
                  anyDepth.name() == "currency-format");
    constexpr XMLQuery present = "flattened-schedule-day[@day-of-week]";
    static_assert(present.form() == Form::ChildWithAttribute && present.name() == "flattened-schedule-day" &&
                  present.attribute() == "day-of-week");
    constexpr XMLQuery equal = "task[@id='t 1/]']";
    static_assert(equal.form() == Form::ChildWithValue && equal.name() == "task" && equal.attribute() == "id" &&
                  equal.value() == "t 1/]");
    constexpr XMLQuery both = "//assignment[@idref='r1' and ../@id='t1']";
    static_assert(both.form() == Form::AnyDepthWithParentValue && both.name() == "assignment" &&
                  both.attribute() == "idref" && both.value() == "r1" && both.parentAttribute() == "id" &&
                  both.parentValue() == "t1");
    EXPECT_EQ(XMLQuery(std::string_view("\u00E9-_.9")).form(), Form::Child);
}

TEST(XMLQuery, AnyOtherTextIsUnsupported) {
    std::istringstream texts(
        "|/|//|//task|/task|a/b/c|//a/b/c|a/|/a/b|*|.|..|@id|x:a|1a|a b|text()|a[1]|a[@]|a[@b|a[@b=c]|"
        "a[@b='c]|a[@b='c'|a[@b='c'] |a[b='c']|a[@b='c']/d|a[@b='c' and @d='e']|//a[@b]|//a[@b='c']|"
        "a[@b='c' and ../@d='e']|//a[@b='c' and ../@d]|//a[@b='c' and ../@d='e'");
    for (std::string text; std::getline(texts, text, '|');) {
        const XMLQuery query{std::string_view(text)};
        EXPECT_EQ(query.form(), Form::Unsupported) << text;
        EXPECT_EQ(query.text(), text);
        EXPECT_EQ(query.name(), "") << text;
    }
}

TEST(XMLQuery, ValueGivenToAMakerCannotChangeTheQuery) {
    const std::string_view hostile = "x' or '1'='1";
    const XMLQuery query = XMLQuery::childWithValue("task", "id", hostile);
    EXPECT_EQ(query.form(), Form::ChildWithValue);
    EXPECT_EQ(query.value(), hostile);
    const XMLQuery both = XMLQuery::anyDepthWithParentValue("assignment", "idref", hostile, "id", "'");
    EXPECT_EQ(both.form(), Form::AnyDepthWithParentValue);
    EXPECT_EQ(both.parentValue(), "'");
}

} // namespace
} // namespace brackwater
