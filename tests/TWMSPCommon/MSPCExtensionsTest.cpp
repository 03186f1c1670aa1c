#include "TWMSPCommon/MSPCExtensions.h"

#include "Platform/Xml/XMLDocument.h"
#include "support/ExpectException.h"

#include <gtest/gtest.h>

namespace brackwater {
namespace {

class TypedReads : public testing::Test {
protected:
    TypedReads()
        : _document(
              XMLDocument::readText("<task flag=' Yes ' odd='maybe'><title>A<i>B</i></title><effort>12abc</effort>"
                                    "<negative>\n -7</negative><word>abc</word><empty/><rate> 2.5e1 h</rate>"
                                    "<twice>1</twice><twice>2</twice><yes>YES\n</yes></task>",
                                    "T")),
          _task(_document->rootElement()) {}

    std::unique_ptr<XMLDocument> _document;
    XMLElement _task;
    Error _error;
};

TEST_F(TypedReads, OneNodeGivesItsValueAndNoError) {
    EXPECT_EQ(stringValueForXQuery(_task, "title", &_error), "AB");
    EXPECT_EQ(intValueForXQuery(_task, "effort", &_error), 12);
    EXPECT_EQ(intValueForXQuery(_task, "negative", &_error), -7);
    EXPECT_EQ(floatValueForXQuery(_task, "rate", &_error), 25.0);
    EXPECT_TRUE(boolValueForXQuery(_task, "yes", &_error));
    EXPECT_EQ(stringValueForXQuery(_task, "empty", &_error), "");
    EXPECT_FALSE(_error);
}

TEST_F(TypedReads, NoNodeGivesTheEmptyResultAndErrorOne) {
    const auto expectErrorOne = [this] {
        EXPECT_EQ(_error.domain, "lanthorn.TWMSPFilter.XQueryErrorDomain");
        EXPECT_EQ(_error.code, 1);
        _error = {};
    };
    EXPECT_EQ(singleObjectForXQuery(_task, "none", &_error), std::nullopt);
    expectErrorOne();
    EXPECT_EQ(stringValueForXQuery(_task, "none", &_error), std::nullopt);
    expectErrorOne();
    EXPECT_EQ(intValueForXQuery(_task, "none", &_error), 0);
    expectErrorOne();
    EXPECT_EQ(floatValueForXQuery(_task, "none", &_error), 0.0);
    expectErrorOne();
    EXPECT_FALSE(boolValueForXQuery(_task, "none", &_error));
    expectErrorOne();
    EXPECT_EQ(stringValueForXQuery(_task, "none"), std::nullopt) << "without a slot";
}

TEST_F(TypedReads, SeveralNodesGiveTheLastOneAndErrorTwo) {
    EXPECT_EQ(singleObjectForXQuery(_task, "twice", &_error)->stringValue(), "2");
    EXPECT_EQ(_error.domain, kXQueryErrorDomain);
    EXPECT_EQ(_error.code, 2);
    EXPECT_EQ(intValueForXQuery(_task, "twice"), 2);
}

TEST_F(TypedReads, NonNumericTextIsAFailedAssertion) {
    test::expectAssertion("Failed to get int value from XML node: <word>abc</word>",
                          [this] { (void)intValueForXQuery(_task, "word"); });
    test::expectAssertion("Failed to get float value from XML node: <empty/>",
                          [this] { (void)floatValueForXQuery(_task, "empty"); });
}

TEST_F(TypedReads, UnportedQueryKeepsItsOwnError) {
    EXPECT_EQ(stringValueForXQuery(_task, "a/b/c", &_error), std::nullopt);
    EXPECT_EQ(_error.domain, "lanthorn.TWMSPFilter.GeneralErrorDomain");
    EXPECT_EQ(_error.code, 100);
    EXPECT_EQ(MSPCMakeNotPortedXQueryError("/x/Mapper.cpp", 7, "q").description,
              "NOT PORTED XQUERY (Mapper.cpp [7]): q");
}

TEST_F(TypedReads, MissingBooleanAttributeIsAnError) {
    EXPECT_TRUE(boolAttributeForName(_task, "flag", &_error));
    EXPECT_FALSE(_error);
    EXPECT_FALSE(boolAttributeForName(_task, "fixed-end", &_error));
    EXPECT_EQ(_error.domain, kXQueryErrorDomain);
    EXPECT_EQ(_error.code, 3);
    EXPECT_EQ(_error.description, "Failed to find arrtibute 'fixed-end' in element 'task'.");
    EXPECT_FALSE(boolAttributeForName(_task, "odd", &_error));
    EXPECT_EQ(_error.domain, kGeneralErrorDomain);
    EXPECT_EQ(_error.code, 2);
    EXPECT_EQ(_error.description, "Failed to get boolean value from string: \"maybe\"");
}

TEST(BooleanTexts, WordsAndWholeNumbersAreParsed) {
    for (const char* text :
         {" YES\n", "True", "1", "-1", "\t+2", "yes", "0001", "99999999999999", "\u00A0\u2028true\u3000"}) {
        Error error;
        EXPECT_TRUE(MSPCBoolValueFromString(text, &error)) << text;
        EXPECT_FALSE(error) << text;
    }
    for (const char* text : {"0", "No", "FALSE", " -0 "}) {
        Error error;
        EXPECT_FALSE(MSPCBoolValueFromString(text, &error)) << text;
        EXPECT_FALSE(error) << text;
    }
}

TEST(BooleanTexts, AnythingElseIsFalseWithAnError) {
    for (const char* text : {"maybe", "1x", "", "  ", "y", "t", "1.0", "- 1", "1 1", "ye\u017F"}) {
        Error error;
        EXPECT_FALSE(MSPCBoolValueFromString(text, &error)) << text;
        EXPECT_EQ(error.code, 2) << text;
    }
    Error error;
    (void)MSPCBoolValueFromString(" 1x\n", &error);
    EXPECT_EQ(error.description, "Failed to get boolean value from string: \" 1x\n\"") << "the text as received";
}

TEST(OneLineTexts, EachLineEndBecomesOneBlank) {
    EXPECT_EQ(stringByReplacingOccurrencesOfNewline("a\r\nb"), "a  b");
    EXPECT_EQ(stringByReplacingOccurrencesOfNewline("\na\n"), " a ");
    EXPECT_EQ(stringByReplacingOccurrencesOfNewline("a\u2028b\u2029c"), "a b c");
    EXPECT_EQ(stringByReplacingOccurrencesOfNewline("a&#x0D;b&#x0d;c&#x0A;d&#x0a;e&#x2028;f&#x2029;g"),
              "a b c d e f g");
    EXPECT_EQ(stringByReplacingOccurrencesOfNewline("&#x0&#x0A;A;"), "&#x0 A;");
}

TEST(OneLineTexts, OtherTextsStayUnchanged) {
    for (const char* text :
         {"", "plain", "a\tb", "&#xA;&#10;&#x0D&amp;&", "\u20AC \u2027 \u202A \u0085 \u00E2\xE2", "x<![CDATA["})
        EXPECT_EQ(stringByReplacingOccurrencesOfNewline(text), text);
}

TEST(OneLineTexts, CdataKeepsItsCharacterReferencesButNoLineEnds) {
    EXPECT_EQ(stringByReplacingOccurrencesOfNewline("<![CDATA[a&#x0A;b]]>"), "<![CDATA[a&#x0A;b]]>");
    EXPECT_EQ(stringByReplacingOccurrencesOfNewline("<![CDATA[a\nb&#x0D;]]>"), "<![CDATA[a b&#x0D;]]>");
    EXPECT_EQ(stringByReplacingOccurrencesOfNewline(" <![CDATA[a&#x0A;b]]>"), " <![CDATA[a b]]>");
}

TEST(ElementBuilding, PartsAreInTheOrderOfTheirIndexes) {
    const auto document = XMLDocument::withRootElement("p");
    const XMLElement root = document->rootElement();
    addChildElementWithName(root, "last", "x < y");
    insertChildElementWithName(root, "first", 0);
    insertChildElementWithName(root, "second", "2", 1);
    insertComment(root, "between", 2);
    insertComment(root, std::nullopt, 0);
    addComment(root, "end");
    EXPECT_EQ(root.description(),
              "<p><!----><first/><second>2</second><!--between--><last>x &lt; y</last><!--end--></p>");
    test::expectException(kRangeException, "Index 7 is out of the bounds of the children of element 'p'.",
                          [&root] { insertChildElementWithName(root, "none", "", 7); });
}

TEST(ElementBuilding, AttributeWithoutAValueIsCreatedOrKept) {
    const auto document = XMLDocument::withRootElement("p");
    const XMLElement root = document->rootElement();
    setAttributeWithName(root, "a");
    EXPECT_EQ(root.attributeForName("a"), "");
    setAttributeWithName(root, "a", "1");
    setAttributeWithName(root, "a");
    setAttributeWithName(root, "a", std::nullopt);
    EXPECT_EQ(root.attributeForName("a"), "1");
    setAttributeWithName(root, "a", "");
    EXPECT_EQ(root.attributeForName("a"), "");
}

} // namespace
} // namespace brackwater
