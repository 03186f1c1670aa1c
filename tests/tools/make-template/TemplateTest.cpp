#include "make-template/CompoundFileOutput.h"
#include "make-template/FieldMap.h"
#include "make-template/TemplateTree.h"
#include "mppinspect/Decoders.h"
#include "support/TempFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>

namespace brackwater::layout {
namespace {

using inspect::FieldPlace;

std::string writtenTemplate(const test::TempFolder& folder, VersionFolder version, std::string_view name = "T.mpp") {
    writeCompoundFile(folder.path(name), templateTree(version));
    return folder.path(name);
}

class Template : public testing::TestWithParam<VersionFolder> {
protected:
    test::TempFolder _folder;
    std::string _path = writtenTemplate(_folder, GetParam());
    inspect::CompoundFile _file = inspect::CompoundFile::open(_path);
    std::string _version = fmt::format("   {}", static_cast<int>(GetParam()));

    Bytes stream(std::initializer_list<std::string_view> path) {
        inspect::Complaints complaints;
        return _file.read(path, complaints).value();
    }
};

INSTANTIATE_TEST_SUITE_P(BothFolders, Template,
                         testing::Values(VersionFolder::Project2007, VersionFolder::Project2010));

TEST_P(Template, IsReadWithoutComplaints) {
    const inspect::ProjectFile project = decode(_file);
    EXPECT_EQ(project.complaints.lines(), std::vector<std::string>{});
    EXPECT_EQ(project.folder, _version);
    ASSERT_EQ(project.tasks.size(), 1U);
    EXPECT_EQ(project.tasks[0].uniqueId, 0U);
    EXPECT_EQ(inspect::textOf(project.tasks[0].start), "2007-01-01 08:00");
    EXPECT_EQ(project.tasks[0].placeInSheet, 1.0);
    ASSERT_EQ(project.resources.size(), 1U);
    EXPECT_EQ(project.resources[0].kind, inspect::ResourceKind::Work);
    EXPECT_EQ(project.resources[0].calendarId, 2U);
    ASSERT_EQ(project.calendars.size(), 2U);
    EXPECT_EQ(project.calendars[0].name, "Standard");
    EXPECT_EQ(project.calendars[1].baseId, 1U);
}

TEST_P(Template, IsTheSameInEveryRun) {
    writtenTemplate(_folder, GetParam(), "Again.mpp");
    EXPECT_EQ(_folder.read("T.mpp"), _folder.read("Again.mpp"));
}

// Exports store the new value's size there too.
TEST_P(Template, RepeatsTheSizeOfFixedPropertiesInTheirHeads) {
    inspect::Complaints complaints;
    const Bytes bytes = stream({_version, "Props"});
    const inspect::PropsFrame props(bytes, "Props", complaints);
    EXPECT_EQ(props.find(0x0240001D)->thirdWord, 4U);
    EXPECT_EQ(props.find(0x02400008)->thirdWord, 0U);
    EXPECT_TRUE(complaints.empty());
}

TEST_P(Template, HasConsistentBookkeepingOfItsRows) {
    inspect::Complaints complaints;
    const Bytes bytes = stream({_version, "Props"});
    const inspect::PropsFrame props(bytes, "Props", complaints);
    const std::array kinds{"TBkndTask", "TBkndRsc", "TBkndCal", "TBkndAssn", "TBkndCons"};
    for (std::uint32_t n = 1; n <= kinds.size(); ++n) {
        const char* storage = kinds.at(n - 1);
        const Bytes fixedMeta = stream({_version, storage, "FixedMeta"}),
                    varMeta = stream({_version, storage, "VarMeta"});
        EXPECT_EQ(props.payload(0x01000000 | n).u32(0), inspect::ByteView(fixedMeta).u32(8)) << storage;
        EXPECT_EQ(props.payload(0x00010000 | n).u32(0), inspect::ByteView(varMeta).u32(20)) << storage;
    }
}

inspect::FieldMap mapOf(const FieldTable& table) {
    inspect::Complaints complaints;
    inspect::FieldMap map(fieldMap(table), "map", complaints);
    EXPECT_TRUE(complaints.empty()) << complaints.lines().front();
    return map;
}

// "86@0 14" for the fields 86, at offset 0 of its block, and 14, which is not in a block.
void expectPlaces(const FieldTable& table, FieldPlace::Where where, const std::string& fields) {
    const inspect::FieldMap map = mapOf(table);
    std::istringstream texts(fields);
    for (std::string text; texts >> text;) {
        const FieldPlace* place = map.find(static_cast<std::uint16_t>(std::stoi(text)));
        ASSERT_NE(place, nullptr) << text;
        EXPECT_EQ(place->where, where) << text;
        if (const std::size_t at = text.find('@'); at != std::string::npos) {
            EXPECT_EQ(place->offset, std::stoi(text.substr(at + 1))) << text;
        }
    }
}

using enum FieldPlace::Where;

// mppinspect's check of a template covers most fields in rows.
TEST(FieldMaps, ListElementsFlagsAndTheFieldsThatNoCheckCovers) {
    expectPlaces(taskFields(), FirstBlock, "101@116");
    expectPlaces(taskFields(), Var2Data, "14 15 336 594");
    expectPlaces(taskFields(), Flag, "24 132");
    EXPECT_EQ(mapOf(taskFields()).secondSize(), 54U);
    expectPlaces(resourceFields(), FirstBlock, "49@180");
    expectPlaces(resourceFields(), SecondBlock, "729@24");
    expectPlaces(resourceFields(), Var2Data, "1 433");
    expectPlaces(resourceFields(), Flag, "298");
    expectPlaces(assignmentFields(), Var2Data, "49 71 634 377");
    EXPECT_EQ(mapOf(assignmentFields()).firstSize(), 142U);
}

// Record bits that every reader expects at fixed positions: a field's row in its map is its bit.
TEST(FieldMaps, AgreeWithTheBitsOfMetaRecords) {
    const inspect::FieldMap tasks = mapOf(taskFields());
    EXPECT_EQ(tasks.find(24)->row, 5U);
    EXPECT_EQ(tasks.find(132)->row, 3 * 8U + 4);
    EXPECT_EQ(tasks.find(51)->row, (22 - 8) * 8U + 6);
    EXPECT_EQ(tasks.find(15)->row, (44 - 8) * 8U);
    EXPECT_EQ(tasks.firstRows(), 307U);
    EXPECT_EQ(tasks.find(482)->row - tasks.firstRows(), 8U);
    const inspect::FieldMap resources = mapOf(resourceFields());
    EXPECT_EQ(resources.find(298)->row, 9U);
    EXPECT_EQ(resources.find(3)->row, (13 - 8) * 8U + 6);
    EXPECT_EQ(resources.find(20)->row, (33 - 8) * 8U + 6);
    EXPECT_EQ(resources.find(735)->row - resources.firstRows(), 4U);
    EXPECT_EQ(mapOf(assignmentFields()).find(71)->row, (14 - 8) * 8U + 4);
}

TEST(FieldMaps, OfEarlierVersionsEndBeforeTheSecondBlock) {
    const Bytes old = oldFieldMap(taskFields()), whole = fieldMap(taskFields());
    EXPECT_EQ(old.size(), 307U * 28);
    EXPECT_TRUE(std::equal(old.begin(), old.end(), whole.begin()));
}

TEST(FieldTables, OfTheTemplateAreValid) {
    for (const FieldTable* table : {&taskFields(), &resourceFields(), &assignmentFields(), &calendarFields(),
                                    &linkFields(), &outlineCodeFields()})
        EXPECT_NO_THROW(verify(*table));
}

TEST(FieldTables, ThatAreInconsistentAreRejected) {
    const auto refused = [](const std::function<void(FieldTable&)>& spoil) {
        FieldTable table = linkFields();
        spoil(table);
        EXPECT_THROW(verify(table), std::logic_error);
    };
    refused([](FieldTable& table) { table.fields[2].position = 6; });              // overlaps the previous one
    refused([](FieldTable& table) { table.firstSize = 18; });                      // the last field is outside
    refused([](FieldTable& table) { table.fields[2].row = table.fields[1].row; }); // two in one row of the map
    refused([](FieldTable& table) { table.fields[2].id = table.fields[1].id; });
    refused([](FieldTable& table) { table.firstMetaSize = 8; }); // no bit for the field
}

TEST(TemplateOutput, ThatCannotBeCreatedIsReportedWithItsPath) {
    const test::TempFolder folder;
    try {
        writtenTemplate(folder, VersionFolder::Project2007, "missing/T.mpp");
        FAIL() << "written";
    } catch (const std::runtime_error& failure) {
        EXPECT_NE(std::string(failure.what()).find("missing/T.mpp"), std::string::npos);
    }
}

} // namespace
} // namespace brackwater::layout
