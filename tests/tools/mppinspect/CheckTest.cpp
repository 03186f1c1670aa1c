#include "mppinspect/Check.h"

#include "make-template/TemplateTree.h"
#include "support/ByteImage.h"
#include "support/CompoundFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace brackwater::test {
namespace {

using inspect::Findings;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

CompoundTree treeOf(const std::vector<layout::Entry>& entries) {
    CompoundTree tree;
    for (const layout::Entry& entry : entries)
        tree.push_back(entry.isStorage ? storage(entry.name, treeOf(entry.children)) : stream(entry.name, entry.bytes));
    return tree;
}

/// A template that suits, and what a test takes from it or adds to it.
class TemplateCheck : public testing::Test {
protected:
    CompoundTree& childrenOf(const std::string& root, const std::string& storage = {}) {
        CompoundTree& children = named(_tree, root).children.value();
        return storage.empty() ? children : named(children, storage).children.value();
    }

    static CompoundEntry& named(CompoundTree& tree, const std::string& name) {
        return *std::ranges::find(tree, name, &CompoundEntry::name);
    }
    static void remove(CompoundTree& tree, const std::string& name) {
        std::erase_if(tree, [&name](const CompoundEntry& entry) { return entry.name == name; });
    }

    /// Offset of a property's payload in "Props" of the rows' folder.
    std::size_t payloadAt(std::uint32_t type) {
        const Bytes& props = named(childrenOf("   112"), "Props").bytes;
        for (std::size_t at = 16; at + 12 <= props.size();) {
            const std::size_t size = integerAt(props, at);
            if (integerAt(props, at + 4) == type)
                return at + 12;
            at += 12 + size + size % 2;
        }
        throw std::logic_error("no such property");
    }

    /// Puts a field of a map elsewhere.
    void moveField(std::uint32_t mapType, unsigned id, unsigned from, unsigned to) {
        Bytes& props = named(childrenOf("   112"), "Props").bytes;
        std::size_t row = payloadAt(mapType);
        while ((integerAt(props, row + 12) & 0xFFFF) != id || (integerAt(props, row + 4) & 0xFFFF) != from)
            row += 28;
        props.at(row + 4) = static_cast<std::uint8_t>(to);
        props.at(row + 5) = static_cast<std::uint8_t>(to >> 8);
    }

    Findings findings() {
        const auto file = inspect::CompoundFile::fromBytes(bytesOfCompoundFile(_tree));
        return check(file, decode(file));
    }

    CompoundTree _tree = treeOf(layout::templateTree(layout::VersionFolder::Project2007));
};

TEST_F(TemplateCheck, FindsNothingInOneThatSuits) { EXPECT_EQ(findingsText(findings()), "nothing found\n"); }

TEST_F(TemplateCheck, TellsWhichFormatAnExportWouldRefuse) {
    named(_tree, "\x01"
                 "CompObj") = compObj("Microsoft.Project 14.0", "MSProject.MPP14");
    EXPECT_THAT(findings().errors.lines(),
                ElementsAre("CompObj: the format is 'MSProject.MPP14': an export refuses all but 'MSProject.MPP12', "
                            "'MSProject.MPT12', 'MSProject.GLOBAL12'"));
    EXPECT_THAT(findings().notes.lines(), ElementsAre(HasSubstr("saved as 'Microsoft.Project 14.0'")));
}

TEST_F(TemplateCheck, WantsTheRowsInTheFolderThatReadersLookIn) {
    _tree = treeOf(layout::templateTree(layout::VersionFolder::Project2010));
    EXPECT_THAT(findings().errors.lines(),
                ElementsAre("112: the storage is missing: readers of an export look for the plan there"));
}

TEST_F(TemplateCheck, MissesTheStreamsThatAnExportTakes) {
    for (const char* storage : {"TBkndTask", "TBkndRsc", "TBkndAssn", "TBkndCal", "TBkndCons"})
        remove(childrenOf("   112", storage), "Props");
    remove(childrenOf("   112", "TBkndCons"), "VarMeta");
    std::vector<std::string> expected;
    for (const char* stream : {"TBkndTask/Props", "TBkndRsc/Props", "TBkndAssn/Props", "TBkndCal/Props",
                               "TBkndCons/Props", "TBkndCons/VarMeta"})
        expected.push_back(std::string(stream) + ": the stream is missing: an export fails here");
    EXPECT_EQ(findings().errors.lines(), expected);
}

TEST_F(TemplateCheck, FindsStoragesThatAnExportCannotCopyButNotThoseItWritesAnew) {
    remove(childrenOf("   212"), "CVba");
    childrenOf("   212").push_back(
        storage("CVba", {storage("module", {storage("deeper", {}), stream("dir", {1})}), stream("Props", {1})}));
    childrenOf("   112", "TBkndTask").push_back(storage("left out", {}));
    EXPECT_THAT(findings().errors.lines(),
                ElementsAre("   212/CVba: a storage at the third level: an export cannot copy it and fails: module"));
}

TEST_F(TemplateCheck, FindsAFieldMapOfOtherRows) {
    moveField(0x00020014, 35, 88, 90);
    moveField(0x00020017, 7, 54, 56);
    const std::string fault = ": the field map has a field elsewhere than an export: readers misread it: ";
    EXPECT_THAT(findings().errors.lines(), ElementsAre("TBkndTask" + fault + "start at 90 instead of 88",
                                                       "TBkndAssn" + fault + "units at 56 instead of 54"));
}

TEST_F(TemplateCheck, FindsRowsOfAnotherSize) {
    named(childrenOf("   112"), "Props").bytes.at(payloadAt(0x00400002)) = 190;
    EXPECT_THAT(findings().errors.lines(),
                ElementsAre("TBkndRsc: the file has rows of another size than an export: 190 bytes instead of 188"));
}

TEST_F(TemplateCheck, FindsMissingProperties) {
    Bytes& props = named(childrenOf("   112"), "Props").bytes;
    props.at(payloadAt(0x02400010) - 8) = 0x7F; // no longer the currency symbol
    EXPECT_THAT(findings().errors.lines(),
                ElementsAre("Props: a property is missing: an export will not have it, and readers rely on it: "
                            "currency symbol (0x02400010)"));
}

// What all real files keep in step.
TEST_F(TemplateCheck, FindsNumbersThatDoNotAgreeWithTheRows) {
    Bytes& props = named(childrenOf("   112"), "Props").bytes;
    props.at(payloadAt(0x01000001)) = 9;
    props.at(payloadAt(0x00010003)) = 1;
    props.at(payloadAt(0x00040002)) = 80;
    props.at(payloadAt(0x02400024) - 8) = 0x7F; // no longer that property
    constexpr std::size_t kTaskRecord = 16 + 3 * 47, kResourceRow = 3 * 16;
    named(childrenOf("   112", "TBkndTask"), "FixedMeta").bytes.at(kTaskRecord + 2) = 7;
    named(childrenOf("   112", "TBkndRsc"), "FixedData").bytes.at(kResourceRow + 16) = 3;
    named(childrenOf("   212", "CV_iew"), "FixedData").bytes.at(112) = 0;
    named(childrenOf("   212", "CTable"), "FixedMeta").bytes.at(16 + 2) = 1;
    remove(childrenOf("   212"), "CUdm");
    EXPECT_THAT(findings().warnings.lines(),
                testing::UnorderedElementsAre(
                    "TBkndTask: the properties tell another number of rows: 9, not 4",
                    "TBkndCal: the properties tell another size of Var2Data: 1, not 22",
                    "TBkndRsc: a row of the second block has another size than the properties tell: row 3: 40, not 80",
                    "Props: a property is absent that all real files have: 0x02400024",
                    "TBkndTask: the record of a row tells another number of elements than it has: row 3: 7, not 1",
                    "TBkndRsc: a row names another calendar than the resource's own: row 3: 3, not 2",
                    "CV_iew: a view is of no known kind: row 0",
                    "CTable: the record of a row tells another number of elements than it has: row 0: 1, not 0",
                    "212: an entry is absent that all real files have: CUdm"));
}

TEST_F(TemplateCheck, SaysWhatIsOnlyGoodToKnowWithoutMakingAnythingOfIt) {
    remove(_tree, "\x05SummaryInformation");
    EXPECT_EQ(findingsText(findings()),
              "note: SummaryInformation: the stream is missing: an export will not have it either\nnothing found\n");
    EXPECT_FALSE(findings().any());
}

/// A plan in which a planner would stumble over nothing.
class PlanCheck : public testing::Test {
protected:
    PlanCheck() {
        task(1, "Walls");
        task(2, "Roof");
        inspect::Calendar calendar;
        calendar.id = 1;
        calendar.name = "Standard";
        project.calendars.push_back(calendar);
    }

    inspect::Task& task(std::uint32_t id, std::string title) {
        inspect::Task task;
        task.uniqueId = id;
        task.title = std::move(title);
        task.start = inspect::Date{15'402, 4'800};
        task.finish = inspect::Date{15'402, 10'200};
        return project.tasks.emplace_back(std::move(task));
    }
    void link(std::uint32_t from, std::uint32_t to) {
        inspect::Link link;
        link.predecessor = from;
        link.successor = to;
        project.links.push_back(link);
    }
    std::vector<std::string> warnings() const {
        Findings findings;
        checkPlan(project, findings);
        EXPECT_TRUE(findings.errors.empty());
        return findings.warnings.lines();
    }

    inspect::ProjectFile project;
};

TEST_F(PlanCheck, FindsNothingInAPlanAsItShouldBe) {
    link(1, 2);
    EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(PlanCheck, FindsDatesThatTheFormatDoesNotHave) {
    project.tasks[0].start = inspect::Date{0, 0};
    project.tasks[1].deadline = inspect::Date{65'535, 0};
    project.tasks[1].constraintDate = inspect::Date{15'402, 14'400};
    project.tasks[0].baselines[3].finish = inspect::Date{0, 100};
    EXPECT_THAT(warnings(), ElementsAre("TBkndTask: a date before 1984, which the format does not have: start of task "
                                        "1, baseline finish of task 1",
                                        "TBkndTask: a time of day beyond midnight: constraint date of task 2",
                                        "TBkndTask: a date at or beyond the end of the format's dates: deadline of "
                                        "task 2"));
}

TEST_F(PlanCheck, FindsTasksWithoutDatesOrInTheWrongOrder) {
    project.tasks[0].finish.reset();
    std::swap(project.tasks[1].start, project.tasks[1].finish);
    EXPECT_THAT(warnings(), ElementsAre("TBkndTask: a task without a start or a finish: task 1",
                                        "TBkndTask: the finish is before the start: task 2"));
}

TEST_F(PlanCheck, CountsTextsAsTheFormatDoes) {
    project.tasks[0].title = std::string(255, 'x');
    EXPECT_THAT(warnings(), IsEmpty());
    project.tasks[0].title += 'x';
    // U+1F3E0 takes two characters of the format, "é" one.
    for (int i = 0; i < 128; ++i)
        project.tasks[1].texts[7] += "\xF0\x9F\x8F\xA0";
    for (int i = 0; i < 255; ++i)
        project.tasks[1].texts[8] += "\xC3\xA9";
    EXPECT_THAT(warnings(), ElementsAre("TBkndTask: a text longer than the 255 characters that fit: name of task 1 "
                                        "with 256, Text7 of task 2 with 256"));
}

TEST_F(PlanCheck, FindsNamesOfCalendarsAndFieldsThatDoNotWork) {
    project.calendars.resize(4);
    project.calendars[1].id = 2;
    project.calendars[1].name = std::string(52, 'c');
    project.calendars[2].id = 3; // of a resource: it needs no name
    project.calendars[2].baseId = 1;
    project.calendars[3].id = 4;
    project.taskTextNames = {{1, std::string(51, 'f')}, {2, ""}, {3, "Trade"}, {4, "Trade"}};
    EXPECT_THAT(warnings(), ElementsAre("TBkndCal: a calendar has a name longer than 51 characters: calendar 2 with 52",
                                        "TBkndCal: a calendar has an empty name: calendar 4",
                                        "TBkndTask/Props: a field has an empty name: Text2",
                                        "TBkndTask/Props: two fields have the same name: Text4"));
}

TEST_F(PlanCheck, FindsCirclesOfLinksButNotWhatStandsBesideThem) {
    link(1, 2);
    link(2, 3);
    link(3, 4);
    link(4, 2);
    link(4, 5);
    link(5, 6);
    link(7, 7);
    EXPECT_THAT(warnings(), ElementsAre("TBkndCons: a task waits for itself through a circle of links: task 2, task 3, "
                                        "task 4"));
}

TEST_F(PlanCheck, FindsLinksThatStandTwice) {
    link(1, 2);
    link(1, 2);
    EXPECT_THAT(warnings(), ElementsAre("TBkndCons: two links between the same tasks: from 1 to 2"));
}

} // namespace
} // namespace brackwater::test
