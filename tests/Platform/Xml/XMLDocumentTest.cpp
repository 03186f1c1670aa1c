#include "Platform/Xml/XMLDocument.h"

#include "support/LogCapture.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <sys/stat.h>

namespace brackwater {
namespace {

using test::LogCapture;

// The document as one line of XML, or the reason why there is none.
std::string outcomeOf(std::string_view text) {
    std::string reason;
    const auto document = XMLDocument::readText(text, "Plan.xml", &reason);
    EXPECT_EQ(document == nullptr, !reason.empty());
    return document ? document->rootElement().description() : reason;
}

std::string repeated(std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

TEST(XMLDocument, WellFormedDocumentIsReadWithoutAWord) {
    const LogCapture log;
    EXPECT_EQ(outcomeOf("<?xml version='1.0'?>\n<!-- c -->\n<a x='1'>\n  <b>&lt;&#x41;&amp;</b>\n</a>\n"),
              "<a x=\"1\"><b>&lt;A&amp;</b></a>");
    EXPECT_EQ(outcomeOf("<!DOCTYPE a><a/>"), "<a/>");
    EXPECT_EQ(log.joined(), "");
}

TEST(XMLDocument, LineEndsAndIndentsBetweenElementsAreNoNodes) {
    const auto document = XMLDocument::readText("<a>\n  <b> </b>\r\n  <c>\n</c>\n\t<d>\n <!-- x -->t</d></a>", "T");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->rootElement().stringValue(), " \n\n t");
}

TEST(XMLDocument, BlanksThatBelongToATextStay) {
    EXPECT_EQ(outcomeOf("<a><i>x</i> <i>y</i></a>"), "<a><i>x</i> <i>y</i></a>");
    EXPECT_EQ(outcomeOf("<a> <![CDATA[<x>\n]]> </a>"), "<a> &lt;x&gt;  </a>");
    EXPECT_EQ(outcomeOf("<a xml:space='preserve'>\n<b/></a>"), "<a xml:space=\"preserve\"> <b/></a>");
}

TEST(XMLDocument, OtherEncodingsBecomeUtf8) {
    EXPECT_EQ(outcomeOf("<?xml version='1.0' encoding='ISO-8859-1'?><a x='\xE9'>\xFC</a>"),
              "<a x=\"\u00E9\">\u00FC</a>");
    const std::u16string wide = u"\uFEFF<a>\u00E9\u4E2D</a>";
    EXPECT_EQ(outcomeOf({reinterpret_cast<const char*>(wide.data()), wide.size() * 2}), "<a>\u00E9\u4E2D</a>");
    EXPECT_EQ(outcomeOf("\xEF\xBB\xBF<a>\u00E9</a>"), "<a>\u00E9</a>");
}

TEST(XMLDocument, EachRepairIsLoggedWithFileLineAndFault) {
    const LogCapture log;
    EXPECT_EQ(outcomeOf("<a>\n<b>x & y</b>\n<c>1 < 2</c>\n<d>z</e></a>"), "<a><b>x  y</b><c>1  2</c><d>z</d></a>");
    ASSERT_EQ(log.lines().size(), 3U) << log.joined();
    EXPECT_EQ(log.lines()[0], "WARNING: 'Plan.xml', line 2: xmlParseEntityRef: no name");
    EXPECT_EQ(log.lines()[1].find("WARNING: 'Plan.xml', line 3: "), 0U);
    EXPECT_EQ(log.lines()[2], "WARNING: 'Plan.xml', line 4: Opening and ending tag mismatch: d line 4 and e");
}

TEST(XMLDocument, BytesThatAreNoUtf8AreReadAsLatin1) {
    const LogCapture log;
    EXPECT_EQ(outcomeOf("<a x='\xE9'>a & \u00E9 \xFF</a>"), "<a x=\"\u00E9\">a  \u00E9 \u00FF</a>");
    ASSERT_EQ(log.lines().size(), 2U) << log.joined();
    EXPECT_NE(log.lines()[0].find("not proper UTF-8"), std::string::npos);
}

TEST(XMLDocument, PrefixWithoutANamespaceIsDroppedFromElementsOnly) {
    const LogCapture log;
    EXPECT_EQ(outcomeOf("<p:a><p:b q:id='1'/></p:a>"), "<a><b q:id=\"1\"/></a>");
    EXPECT_EQ(log.lines().size(), 3U) << log.joined();
}

TEST(XMLDocument, StrayTextBehindTheRootIsReadOver) {
    const LogCapture log;
    EXPECT_EQ(outcomeOf("<a/>\n-- end --\n"), "<a/>");
    EXPECT_TRUE(log.contains("WARNING: 'Plan.xml', line 2: ")) << log.joined();
}

TEST(XMLDocument, DocumentThatEndsTooEarlyIsRefusedWhereverItIsCut) {
    const LogCapture log;
    const std::string whole =
        "<?xml version='1.0'?>\n<!DOCTYPE s>\n<s xmlns='http://x/y'>\n <task id='t1'><title>A &amp; "
        "B</title><!-- c --><![CDATA[x]]></task>\n <task id='t2'/>\n</s>";
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(outcomeOf(whole.substr(0, size)).find("'Plan.xml' could not be read: "), 0U) << size;
    EXPECT_EQ(outcomeOf("<a><b>"), "'Plan.xml' could not be read: it ends too early (line 1: Premature end of data in "
                                   "tag b line 1)");
    EXPECT_EQ(outcomeOf(""), "'Plan.xml' could not be read: it is empty");
}

TEST(XMLDocument, DocumentWhoseElementsWouldBeLostIsRefused) {
    const LogCapture log;
    // One end tag too many closes the root before its last elements.
    EXPECT_NE(outcomeOf("<s><t></t></t><t/></s>").find("markup stands behind the end of its root element"),
              std::string::npos);
    EXPECT_NE(outcomeOf("<s/><s/>").find("markup stands behind"), std::string::npos);
    EXPECT_NE(outcomeOf(std::string("<s><t>x\0y</t></s>", 18)).find("ends too early"), std::string::npos);
}

TEST(XMLDocument, DoctypeThatHoldsDeclarationsIsRefusedUnread) {
    const LogCapture log;
    std::string bomb = "<!ENTITY l0 'lol'>";
    for (int i = 1; i < 10; ++i)
        bomb += "<!ENTITY l" + std::to_string(i) + " '" + repeated("&l" + std::to_string(i - 1) + ";", 10) + "'>";
    std::string values = "x0";
    for (int i = 1; i < 60'000; ++i)
        values += "|x" + std::to_string(i);
    for (const std::string& declarations :
         {std::string(), std::string("<!ENTITY % x 'y'>"), std::string("<!ENTITY x SYSTEM 'file:///etc/passwd'>"),
          std::string("<!ATTLIST a b (x|y) 'x'>"), "<!ATTLIST a b (" + values + ") #IMPLIED>", bomb})
        for (const char* doctype : {"<!DOCTYPE a[", "<!DOCTYPE a SYSTEM 'x' \n ["})
            EXPECT_EQ(outcomeOf(doctype + declarations + "]><a>&l9;</a>"),
                      "'Plan.xml' could not be read: its DOCTYPE holds declarations");
    EXPECT_EQ(log.joined(), "");
}

TEST(XMLDocument, TagsThatGrowBeyondAnyDocumentAreRefusedInEveryEncoding) {
    const LogCapture log;
    const auto tagWith = [](std::string_view name, int count) {
        std::string text = "<s><t";
        for (int i = 0; i < count; ++i)
            text.append(" ").append(name).append(std::to_string(i)).append("='u'");
        return text + "/></s>";
    };
    EXPECT_EQ(outcomeOf(tagWith("a", 500)).substr(0, 10), "<s><t a0=\"");
    EXPECT_EQ(outcomeOf(tagWith("xmlns:n", 200)).substr(0, 16), "<s><t xmlns:n0=\"");
    std::string wide = "\xFF\xFE";
    for (const char byte : tagWith("a", 200'000))
        wide.append({byte, '\0'});
    for (const std::string& text :
         {tagWith("a", 200'000), "<?xml version='1.0' encoding='ISO-8859-2'?>" + tagWith("a", 5000), wide})
        EXPECT_EQ(outcomeOf(text), "'Plan.xml' could not be read: a start tag has too many attributes");
    EXPECT_EQ(outcomeOf(tagWith("xmlns:n", 200'000)), "'Plan.xml' could not be read: too many namespaces are declared");
    EXPECT_EQ(log.joined(), "");
}

// The library's table of names stops growing, so that each further name costs more than the last.
TEST(XMLDocument, NamesWithoutNumberAreRefusedWhereverTheyStand) {
    const auto numbered = [](std::string_view before, std::string_view behind, int count) {
        std::string text;
        for (int number = 0; number < count; ++number)
            text.append(before).append(std::to_string(number)).append(behind);
        return text;
    };
    constexpr int kFew = 15'000, kMany = 30'000;
    const LogCapture log;
    EXPECT_EQ(outcomeOf("<s>" + numbered("<t", "/>", kFew) + "</s>").substr(0, 7), "<s><t0/");
    for (const std::string& content :
         {numbered("<t", "/>", kMany), numbered("<t a", "=''/>", kMany), numbered("<t xmlns='u", "'/>", kMany),
          numbered("<p", ":t/>", kMany), numbered("<?t", "?>", kMany), numbered("&e", ";", kMany),
          "<t a='" + numbered("&e", ";", kMany) + "'/>"})
        EXPECT_EQ(outcomeOf("<s>" + content + "</s>"), "'Plan.xml' could not be read: it has too many different names")
            << content.substr(0, 20);
}

TEST(XMLDocument, ManyRepairsAreCountedNotLogged) {
    const LogCapture log;
    for (const char* foreign : {"", "\xE9"}) {
        EXPECT_EQ(outcomeOf("<s>" + repeated("<t a=b/>", 300) + foreign + "</s>").substr(0, 3), "<s>");
    }
    EXPECT_EQ(log.lines().size(), 202U);
    EXPECT_EQ(log.lines()[100].find("WARNING: 'Plan.xml' has "), 0U) << log.lines()[100];
}

TEST(XMLDocument, ExternalPartsAreNeverRead) {
    const test::TempFolder folder;
    const std::string path =
        folder.write("external.dtd", "<!ENTITY secret 'read from a file'><!ATTLIST a b CDATA 'also'>");
    const LogCapture log;
    EXPECT_EQ(outcomeOf("<!DOCTYPE a SYSTEM 'file://" + path + "'><a>x &secret; y</a>"), "<a>x &secret; y</a>");
    EXPECT_EQ(log.lines(), std::vector<std::string>{"WARNING: 'Plan.xml', line 1: Entity 'secret' not defined"});
    EXPECT_EQ(
        outcomeOf("<a xmlns:i='http://www.w3.org/2001/XInclude'><i:include href='" + path + "'/></a>").find("secret"),
        std::string::npos);
}

TEST(XMLDocument, UndeclaredEntityStaysInTheTextAndLeavesAttributes) {
    const LogCapture log;
    const auto document = XMLDocument::readText("<!DOCTYPE a SYSTEM 'x'><a b='1&u;2'>p &u; q</a>", "T");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->rootElement().stringValue(), "p &u; q");
    EXPECT_EQ(document->rootElement().attributeForName("b"), "12");
    EXPECT_EQ(log.lines().size(), 2U) << log.joined();
}

TEST(XMLDocument, LimitsOfTheLibraryHold) {
    const LogCapture log;
    EXPECT_NE(outcomeOf(repeated("<a>", 100'000)).find("could not be read"), std::string::npos);
    EXPECT_NE(outcomeOf(repeated("<a>", 300) + repeated("</a>", 300)).find("Excessive depth"), std::string::npos);
    EXPECT_NE(outcomeOf("<a>" + repeated("\u00E9", 6'000'000) + "</a>").find("could not be read"), std::string::npos);
}

TEST(XMLDocument, LargeDocumentIsReadWhole) {
    const std::string text = "<a>" + repeated("<b>0123456789</b>", 1'000'000) + "</a>"; // beyond 10 MB of input
    const LogCapture log;
    const auto document = XMLDocument::readText(text, "T");
    ASSERT_TRUE(document) << log.joined();
    EXPECT_EQ(document->rootElement().objectsForXQuery("b").size(), 1'000'000U);
}

// The library is given a text in pieces, whose ends may fall anywhere.
TEST(XMLDocument, PartsReadTheSameWhereverTheyLie) {
    const std::string part = "<t id='&#65; &amp;'>\u00E9 &lt;<![CDATA[q]]></t>\n <!-- c --> <t/>";
    const std::string expected = outcomeOf("<s>" + part + "</s>");
    for (std::size_t distance = 3900; distance < 4010; ++distance) {
        const std::string spaces(distance, ' ');
        const LogCapture log;
        EXPECT_EQ(outcomeOf("<s " + spaces + ">" + part + "</s>"), expected) << distance;
        EXPECT_EQ(log.joined(), "") << distance;
        EXPECT_NE(outcomeOf("<s>" + part + "</s>" + spaces + "<s/>").find("markup stands behind"), std::string::npos)
            << distance;
        EXPECT_EQ(outcomeOf("<s>" + part + "</s> --" + spaces + "--"), expected) << distance;
    }
}

TEST(XMLDocument, RandomDamageEndsInADocumentOrAReason) {
    const LogCapture log;
    const std::string whole = "<?xml version='1.0' encoding='UTF-8'?><!DOCTYPE s [<!ELEMENT s ANY>]><s xmlns='u:v' "
                              "x:y='&#65;'><t id=\"1\">\u00E9 &amp;<![CDATA[q]]></t><?pi x?><!-- c --></s>";
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string damaged = whole;
        for (int bytes = 0; bytes < 3; ++bytes)
            damaged[random() % damaged.size()] = static_cast<char>(random() % 256);
        outcomeOf(damaged);
    }
}

TEST(XMLDocument, OnlyRegularFilesAreRead) {
    const test::TempFolder temporary;
    const std::string& folder = temporary.path();
    temporary.write("Plan.xml", "<a>x</a>");
    ASSERT_EQ(mkfifo(temporary.path("pipe").c_str(), 0600), 0);
    const auto reasonFor = [&folder](const std::string& name) {
        std::string reason;
        EXPECT_EQ(XMLDocument::readFile(folder + name, &reason), nullptr);
        return reason.substr(folder.size() + 1);
    };
    const auto document = XMLDocument::readFile(folder + "/Plan.xml");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->rootElement().stringValue(), "x");
    EXPECT_EQ(reasonFor(""), "' could not be read: it is not a regular file");
    EXPECT_EQ(reasonFor("/pipe"), "/pipe' could not be read: it is not a regular file");
    EXPECT_EQ(reasonFor("/none.xml"), "/none.xml' could not be read: No such file or directory");
    // Takes no room on the disk.
    std::filesystem::resize_file(temporary.write("huge.xml", ""), std::uintmax_t{1} << 40);
    EXPECT_EQ(reasonFor("/huge.xml"), "/huge.xml' could not be read: it is larger than 2 GB");
}

} // namespace
} // namespace brackwater
