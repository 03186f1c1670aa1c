#include "Platform/Xml/XMLDocument.h"
#include "support/ExpectException.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

namespace brackwater {
namespace {

std::unique_ptr<XMLDocument> read(std::string_view text) {
    auto document = XMLDocument::readText(text, "T");
    EXPECT_TRUE(document);
    return document;
}

// What a query finds, as the `n` attributes of the elements; both ways of asking must agree.
std::string found(XMLElement element, const XMLQuery& query) {
    std::string numbers;
    const auto objects = element.objectsForXQuery(query);
    for (const XMLElement object : objects)
        numbers += object.attributeForName("n").value_or("?") + " ";
    const auto last = element.lastObjectForXQuery(query);
    EXPECT_EQ(last.count, objects.size());
    EXPECT_EQ(last.last.has_value(), !objects.empty());
    if (last.last && !objects.empty()) {
        EXPECT_EQ(*last.last, objects.back());
    }
    return numbers;
}

TEST(XMLElement, QueriesFindChildrenInDocumentOrder) {
    const auto document = read("<s><task n='1' id='a'><task n='2'/><x><y n='3'/></x></task><tasks n='4'/>"
                               "<task n='5' date=''/><tas n='6'/><x n='7'><y n='8'/></x></s>");
    const XMLElement root = document->rootElement();
    EXPECT_EQ(found(root, "task"), "1 5 ");
    EXPECT_EQ(found(root, "task/task"), "2 ");
    EXPECT_EQ(found(root, "x/y"), "8 ");
    EXPECT_EQ(found(root, "task[@date]"), "5 ");
    EXPECT_EQ(found(root, "missing"), "");
    EXPECT_EQ(found(root.firstChildElement().value(), "task"), "2 ");
    EXPECT_EQ(found(root.firstChildElement().value(), "x/y"), "3 ");
}

TEST(XMLElement, AnyDepthCountsFromTheRootWhateverTheReceiver) {
    const auto document = read("<p><f n='1'/><q><p><f n='2'/><p><f n='3'/></p></p><f n='4'/></q></p>");
    const XMLElement deep = document->rootElement().objectsForXQuery("q/p").at(0);
    EXPECT_EQ(found(deep, "//p/f"), "1 2 3 ");
    EXPECT_EQ(found(deep, "//q/f"), "4 ");
    EXPECT_EQ(found(deep, "//p/p"), "? ");
}

TEST(XMLElement, NamesMatchWithoutTheirNamespace) {
    const auto document = read("<s xmlns='u:1' xmlns:p='u:2'><p:task id='t1' n='1'/><task id='t1' n='2'/></s>");
    const XMLElement root = document->rootElement();
    EXPECT_EQ(root.namespaces(), (std::vector<std::string>{"u:1", "u:2"}));
    EXPECT_EQ(found(root, "task"), "1 2 ");
    EXPECT_EQ(found(root, "task[@id='t1']"), "1 2 ");
    EXPECT_EQ(root.firstChildElement()->name(), "task");
    EXPECT_EQ(read("<s p:id='a' id='b' xmlns:p='u:2'/>")->rootElement().attributeForName("id"), "b");
    for (const char* text :
         {"<s xml:id='a'/>", "<s p:id='a' xmlns:p='u:2'/>", "<s unknown:id='a'/>", "<s id:id:id='a'/>"})
        EXPECT_EQ(read(text)->rootElement().attributeForName("id"), std::nullopt) << text;
}

TEST(XMLElement, IdQueriesGiveAllOfOneIdInDocumentOrder) {
    const auto document = read("<s><task id='a' n='1'/><res id='a' n='2'/><task id='b' n='3'/><task id='a' n='4'>"
                               "<task id='a' n='5'/><task id='c' n='6'/></task><task n='7'/><task id='' n='8'/></s>");
    const XMLElement root = document->rootElement();
    EXPECT_EQ(found(root, "task[@id='a']"), "1 4 ");
    EXPECT_EQ(found(root, "res[@id='a']"), "2 ");
    EXPECT_EQ(found(root, "task[@id='']"), "8 ");
    EXPECT_EQ(found(root, "task[@id='c']"), "") << "not a child of the root";
    EXPECT_EQ(found(root, "task[@n='3']"), "3 ") << "any attribute";
    const XMLElement inner = root.objectsForXQuery("task").at(2);
    EXPECT_EQ(found(inner, "task[@id='c']"), "6 ");
    EXPECT_EQ(found(inner, "task[@id='b']"), "");
}

TEST(XMLElement, ParentConditionLooksAtBothAttributes) {
    const auto document =
        read("<s id='t0'><assignment idref='r1' n='0'/><task id='t1'><assignment idref='r1' n='1'/>"
             "<assignment idref='r2' n='2'/></task><task id='t2'><x><assignment idref='r1' n='3'/></x>"
             "<assignment idref='r1' n='4'/><assignment idref='r1' n='5'/></task></s>");
    const XMLElement task = document->rootElement().objectsForXQuery("task").at(0);
    EXPECT_EQ(found(task, "//assignment[@idref='r1' and ../@id='t2']"), "4 5 ");
    EXPECT_EQ(found(task, "//assignment[@idref='r2' and ../@id='t1']"), "2 ");
    EXPECT_EQ(found(task, "//assignment[@idref='r1' and ../@id='t0']"), "0 ");
    EXPECT_EQ(found(task, "//assignment[@idref='t1' and ../@id='r1']"), "");
}

TEST(XMLElement, IndexAgreesWithAPlainSearch) {
    std::mt19937 random(11);
    std::string text = "<s>";
    for (int task = 0; task < 400; ++task) {
        text += "<task n='" + std::to_string(task) + "' id='t" + std::to_string(random() % 150) + "'>";
        for (int assignment = 0; assignment < 3; ++assignment)
            text += "<assignment n='" + std::to_string(task) + "." + std::to_string(assignment) + "' idref='r" +
                    std::to_string(random() % 4) + "'/>";
        text += "</task>";
    }
    const auto document = read(text + "</s>");
    const XMLElement root = document->rootElement();
    for (int id = 0; id < 160; ++id) {
        const std::string taskId = "t" + std::to_string(id);
        std::string tasks;
        std::string assignments;
        for (const XMLElement task : root.objectsForXQuery("task")) {
            if (task.attributeForName("id") != taskId)
                continue;
            tasks += *task.attributeForName("n") + " ";
            for (const XMLElement assignment : task.objectsForXQuery("assignment"))
                if (assignment.attributeForName("idref") == "r2")
                    assignments += *assignment.attributeForName("n") + " ";
        }
        EXPECT_EQ(found(root, XMLQuery::childWithValue("task", "id", taskId)), tasks);
        EXPECT_EQ(found(root, XMLQuery::anyDepthWithParentValue("assignment", "idref", "r2", "id", taskId)),
                  assignments);
    }
}

TEST(XMLElement, IdQueriesCostTheSameInALargeDocument) {
    constexpr int count = 100'000;
    std::string text = "<s>";
    for (int task = 0; task < count; ++task) // ids of their own, and one that all others share
        text += "<task id='t" + std::to_string(task) + "'><assignment idref='r'/></task><task id='same'/>";
    const auto document = read(text + "</s>");
    const XMLElement root = document->rootElement();
    const auto start = std::chrono::steady_clock::now();
    std::size_t hits = 0;
    for (int task = 0; task < count; ++task) {
        const std::string id = "t" + std::to_string(task);
        hits += root.lastObjectForXQuery(XMLQuery::childWithValue("task", "id", id)).count;
        hits += root.lastObjectForXQuery(XMLQuery::anyDepthWithParentValue("assignment", "idref", "r", "id", id)).count;
        hits += root.lastObjectForXQuery(XMLQuery::childWithValue("task", "id", "same")).count == count ? 1U : 0U;
    }
    EXPECT_EQ(hits, 3U * count);
    // A search through the document for each question would take hours.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(XMLElement, UnsupportedQueryFindsNothingAndSaysSo) {
    const auto document = read("<a><b><c/></b></a>");
    Error error;
    EXPECT_TRUE(document->rootElement().objectsForXQuery("b/c/d", &error).empty());
    EXPECT_EQ(error.code, 100);
    EXPECT_EQ(error.description.find("NOT PORTED XQUERY (XMLElement.cpp ["), 0U);
    EXPECT_NE(error.description.find("]): b/c/d"), std::string::npos);
}

TEST(XMLElement, TextIsThatOfAllElementsBelow) {
    const auto document = read("<a>1<b>2<!-- no --><c>3</c><?no no?></b><![CDATA[4]]>5<d/></a>");
    std::string storage;
    EXPECT_EQ(document->rootElement().stringValue(), "12345");
    EXPECT_EQ(document->rootElement().textView(storage), "12345");
    EXPECT_EQ(read("<a/>")->rootElement().textView(storage), "");
    EXPECT_EQ(read("<a b=''/>")->rootElement().attributeView("b"), "");
    EXPECT_EQ(read("<a b=''/>")->rootElement().attributeView("c"), std::nullopt);
}

TEST(XMLElement, ElementsAreWalkedWithoutTheirOtherNodes) {
    const auto document = read("<a>x<!-- c --><b/>y<c><d/></c><?p i?></a>");
    std::string names;
    for (auto child = document->rootElement().firstChildElement(); child; child = child->nextSiblingElement()) {
        names += child->name();
        EXPECT_EQ(child->parent(), document->rootElement());
    }
    EXPECT_EQ(names, "bc");
    EXPECT_EQ(document->rootElement().parent(), std::nullopt);
}

TEST(XMLElement, DescriptionIsOneLineAndShort) {
    EXPECT_EQ(read("<a b='1'>x\ny</a>")->rootElement().description(), "<a b=\"1\">x y</a>");
    std::string letters;
    for (int i = 0; i < 1000; ++i)
        letters += "\u4E2D";
    const std::string text = read("<a>" + letters + "</a>")->rootElement().description();
    EXPECT_LE(text.size(), 403U);
    EXPECT_EQ(text.substr(text.size() - 6), "\u4E2D...") << "cut between two letters";
}

TEST(XMLElement, BuiltTreeReadsBackAsItWasBuilt) {
    const auto document = XMLDocument::withRootElement("Project");
    XMLElement root = document->rootElement();
    XMLElement name = root.addChild("Name");
    name.setStringValue("first");
    name.setStringValue("a < b & &amp; \u00E9");
    root.setAttribute("x", "1");
    root.setAttribute("x", "\"2\" & <3>");
    root.insertChild("First", 0).setAttribute("id", "f");
    root.addComment(" end ");
    root.insertComment("second", 1);
    const std::string text = document->serialized();
    EXPECT_EQ(text, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<Project x=\"&quot;2&quot; &amp; &lt;3&gt;\">\n  <First id=\"f\"/>\n  <!--second-->\n"
                    "  <Name>a &lt; b &amp; &amp;amp; \u00E9</Name>\n  <!-- end -->\n</Project>\n");
    EXPECT_EQ(read(text)->rootElement().objectsForXQuery("Name").at(0).stringValue(), "a < b & &amp; \u00E9");
}

TEST(XMLElement, QueriesSeeWhatWasBuiltAfterThem) {
    const auto document = XMLDocument::withRootElement("s");
    XMLElement root = document->rootElement();
    EXPECT_EQ(root.lastObjectForXQuery("task[@id='a']").count, 0U);
    XMLElement task = root.addChild("task");
    task.setAttribute("id", "a");
    EXPECT_EQ(root.lastObjectForXQuery("task[@id='a']").count, 1U);
    task.setAttribute("id", "b");
    EXPECT_EQ(root.lastObjectForXQuery("task[@id='a']").count, 0U);
    EXPECT_EQ(root.lastObjectForXQuery("task[@id='b']").last, task);
}

TEST(XMLElement, IndexOutsideTheChildrenIsOutOfRange) {
    const auto document = XMLDocument::withRootElement("s");
    XMLElement root = document->rootElement();
    root.insertChild("a", 0);
    root.insertChild("b", 1);
    const auto message = [](int index) {
        return "Index " + std::to_string(index) + " is out of the bounds of the children of element 's'.";
    };
    for (const int index : {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        test::expectException(kRangeException, message(index), [&] { root.insertChild("x", index); });
        test::expectException(kRangeException, message(index), [&] { root.insertComment("x", index); });
    }
    EXPECT_EQ(root.description(), "<s><a/><b/></s>");
}

} // namespace
} // namespace brackwater
