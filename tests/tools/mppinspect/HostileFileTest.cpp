#include "FileImage.h"

#include "make-template/CompoundFileOutput.h"
#include "make-template/TemplateTree.h"
#include "mppinspect/Check.h"
#include "mppinspect/GanttPage.h"
#include "mppinspect/JsonReport.h"
#include "mppinspect/TextReport.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace brackwater::test {
namespace {

using inspect::CompoundFile;
using inspect::Section;

// Decodes and prints everything; what is no compound file may be refused, nothing else may happen.
void readWhole(Bytes bytes) {
    try {
        const CompoundFile file = CompoundFile::fromBytes(std::move(bytes));
        const inspect::ProjectFile project = decode(file);
        for (const Section section :
             {Section::Summary, Section::Entries, Section::Properties, Section::Tasks, Section::Resources,
              Section::Assignments, Section::Links, Section::Calendars, Section::Complaints})
            EXPECT_FALSE(report(project, section).empty());
        EXPECT_FALSE(findingsText(check(file, project)).empty());
        std::size_t size = 0;
        writeJson(project, [&size](std::string_view piece) { size += piece.size(); });
        EXPECT_GT(size, 0U);
        writeGanttPage(project, [&size](std::string_view piece) { size += piece.size(); });
    } catch (const std::runtime_error&) { // refused
    }
}

FileImage smallPlan() {
    FileImage file;
    file.properties.emplace_back(0x00020018, MapImage().fixed(0, 0, MapImage::kNumber32).bytes());
    std::erase_if(file.properties, [](const auto& property) { return property.first == 0x00020014; });
    file.properties.emplace_back(0x00020014, MapImage()
                                                 .fixed(0, 86, MapImage::kNumber32)
                                                 .fixed(4, 160, MapImage::kNumber32)
                                                 .variable(14)
                                                 .variable(15)
                                                 .fixed(8, 35, MapImage::kDate)
                                                 .bytes());
    auto& tasks = file["TBkndTask"].headers(3, 4);
    for (std::uint32_t id = 0; id < 4; ++id)
        tasks.row(ByteImage(12).integer(0, id).integer(4, id - 1), ByteImage(4))
            .element(id, 14, text16("Title"))
            .element(id, 15, {'{', '\\', 'r', 't', 'f', ' ', 'n', '}', 0});
    file["TBkndCal"]
        .row(ByteImage(12).integer(0, 1), ByteImage(48))
        .element(1, 8, Bytes(428))
        .element(1, 1, text16("Base"));
    file["TBkndCons"].row(ByteImage(20).integer(4, 1).integer(8, 2), ByteImage(48));
    return file;
}

TEST(HostileFiles, CutAtAnyPlaceAreReadOrRefused) {
    const Bytes whole = bytesOfCompoundFile(smallPlan().tree());
    for (std::size_t size = 0; size < whole.size(); size += 97)
        readWhole(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
}

TEST(HostileFiles, WithRandomBytesAreReadOrRefused) {
    const Bytes whole = bytesOfCompoundFile(smallPlan().tree());
    std::mt19937 random(20260302); // the same in every run
    for (int round = 0; round < 1500; ++round) {
        Bytes bytes = whole;
        for (int i = 0; i < 1 + round % 16; ++i)
            bytes.at(random() % bytes.size()) = static_cast<std::uint8_t>(random());
        readWhole(std::move(bytes));
    }
}

// Spoils the streams themselves, which random bytes of the whole file seldom reach.
TEST(HostileFiles, WithSpoiltStreamsAreRead) {
    std::mt19937 random(4711);
    const FileImage sound = smallPlan();
    const auto spoil = [&random](Bytes& bytes) {
        for (int i = 0; i < 3 && !bytes.empty(); ++i)
            bytes.at(random() % bytes.size()) = random() % 2 != 0 ? 0xFF : static_cast<std::uint8_t>(random());
        if (random() % 4 == 0)
            bytes.resize(random() % (bytes.size() + 1));
    };
    for (int round = 0; round < 600; ++round) {
        FileImage file = sound;
        for (auto& [name, rows] : file.storages)
            for (Bytes* bytes : {&rows.fixedMeta, &rows.fixedData, &rows.fixed2Meta, &rows.varRecords, &rows.var2Data})
                if (random() % 6 == 0)
                    spoil(*bytes);
        for (auto& [type, payload] : file.properties)
            if (random() % 8 == 0)
                spoil(payload);
        readWhole(bytesOfCompoundFile(file.tree()));
    }
}

TEST(HostileFiles, WithAnOutlineAsDeepAsItIsLongAreReadQuickly) {
    FileImage file = smallPlan();
    auto& tasks = file["TBkndTask"];
    for (std::uint32_t id = 4; id < 30000; ++id)
        tasks.row(ByteImage(12).integer(0, id).integer(4, id - 1), ByteImage(4));
    for (std::uint32_t id = 0; id < 3000; ++id)
        file["TBkndCons"].row(ByteImage(20).integer(0, id).integer(4, 2).integer(8, 29999 - id), ByteImage(48));
    const inspect::ProjectFile project = file.decoded();
    EXPECT_EQ(project.tasks.back().depth, 29999);
    EXPECT_TRUE(project.complaints.mention("a link from a task above"));
}

// A text of 100 kB for each of 3,000 rows would be 300 MB, and a table as wide as the text as much again.
TEST(HostileFiles, WhoseRowsShareALongTextStaySmall) {
    FileImage file = smallPlan();
    auto& tasks = file["TBkndTask"];
    const auto offset = static_cast<std::uint32_t>(tasks.var2Data.size());
    tasks.element(4, 14, text16(std::string(100'000, 'x')));
    for (std::uint32_t id = 4; id < 3000; ++id) {
        tasks.row(ByteImage(12).integer(0, id).integer(4, 0), ByteImage(4));
        if (id > 4)
            tasks.element(id, 14, {});
        const Bytes record = ByteImage(4).integer(0, offset).bytes();
        std::copy(record.begin(), record.end(), tasks.varRecords.end() - 8);
    }
    const inspect::ProjectFile project = file.decoded();
    EXPECT_TRUE(project.complaints.mention("elements are shared by so many rows"));
    EXPECT_LT(report(project, Section::Tasks).size(), 4'000'000U);
}

TEST(HostileFiles, WhoseSummaryValuesShareALongTextStaySmall) {
    ByteImage set(48);
    set.word(0, 0xFFFE).integer(24, 1).integer(44, 48).integer(52, 5000);
    for (std::size_t i = 0; i < 5000; ++i)
        set.integer(56 + 8 * i, 2).integer(60 + 8 * i, 8 + 8 * 5000);
    set.integer(56 + 8 * 5000, 30).integer(60 + 8 * 5000, 100'000).byte(64 + 8 * 5000 + 99'999, 0);
    Bytes bytes = set.bytes();
    std::fill(bytes.end() - 100'000, bytes.end(), 'x');
    inspect::Complaints complaints;
    EXPECT_LT(readPropertySet(bytes, "Summary", complaints).size(), 10U);
    EXPECT_TRUE(complaints.mention("values share their bytes"));
}

TEST(HostileFiles, ThatAreNoProjectsSaySo) {
    const TempFolder folder;
    EXPECT_THROW((void)CompoundFile::open(folder.path("missing.mpp")), std::runtime_error);
    EXPECT_THROW((void)CompoundFile::open(folder.path()), std::runtime_error);
    EXPECT_THROW((void)CompoundFile::open(folder.write("text.mpp", std::string(5000, 'x'))), std::runtime_error);
    const inspect::ProjectFile project = decode(CompoundFile::fromBytes(bytesOfCompoundFile({stream("A", {})})));
    EXPECT_TRUE(project.complaints.mention("there is no project to read"));
    EXPECT_TRUE(project.complaints.mention("the kind of document is unknown"));
}

TEST(HostileFiles, WithStreamsOfAnImpossibleSizeAreNotReadIntoMemory) {
    const TempFolder folder;
    layout::writeCompoundFile(folder.path("T.mpp"), layout::templateTree(layout::VersionFolder::Project2007));
    Bytes bytes = readFile(folder.path("T.mpp"));
    // The size of every stream of the directory becomes 3 GB. An entry is 128 bytes: its kind at 66, its size at 120.
    const std::size_t directory = 512 * (1 + inspect::ByteView(bytes).u32(48).value());
    for (std::size_t entry = directory; entry + 128 <= bytes.size(); entry += 128)
        if (bytes[entry + 66] == 2)
            bytes[entry + 123] = 0xC0;
    readWhole(std::move(bytes));
}

} // namespace
} // namespace brackwater::test
