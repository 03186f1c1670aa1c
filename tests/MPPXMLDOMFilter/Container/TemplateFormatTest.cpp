#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Container/MPPTemplateFormat.h"
#include "support/CompoundFile.h"
#include "support/LogCapture.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

namespace brackwater::test {
namespace {

class TemplateFormat : public testing::Test {
protected:
    int versionOf(const CompoundTree& tree) {
        writeCompoundFile(_folder.path("T.mpp"), tree);
        return formatVersionOfTemplateAtUrl(FileURL::fileURLWithPath(_folder.path("T.mpp"), false));
    }
    int versionOf(const std::string& userType, const std::string& formatName) {
        return versionOf({compObj(userType, formatName)});
    }

    CompoundFileLibrary _library;
    TempFolder _folder;
    LogCapture _log;
};

TEST_F(TemplateFormat, IsNamedByTheSecondText) {
    const std::pair<const char*, int> names[] = {
        {"MSProject.MPP9", 1},      {"MSProject.MPT9", 1},
        {"MSProject.GLOBAL9", 1},   {"MSProject.MPP12", 2},
        {"MSProject.MPT12", 2},     {"MSProject.GLOBAL12", 2},
        {"MSProject.MPP14", 3},     {"MSProject.MPT14", 3},
        {"MSProject.GLOBAL14", 3},  {"MSProject.mpp12", 0},
        {"MSProject.MPP12 ", 0},    {"MSProject.MPP1", 0},
        {"MSProject.Project.9", 0}, {"", 0},
    };
    for (const auto& [name, version] : names)
        EXPECT_EQ(versionOf("Microsoft Project 12.0", name), version) << name;
    EXPECT_EQ(versionOf("", "MSProject.MPP12"), 2);
    EXPECT_EQ(versionOf(std::string(5000, 'x'), "MSProject.MPP14"), 3);
}

TEST_F(TemplateFormat, OfVersion4IsUnknownWhateverTheSecondText) {
    EXPECT_EQ(versionOf("Microsoft Project 4.0", "MSProject.MPP12"), 0);
    EXPECT_EQ(versionOf("microsoft project 4.0", "MSProject.MPP12"), 2);
}

TEST_F(TemplateFormat, IsUnknownWithoutCompObj) {
    EXPECT_EQ(versionOf({stream("CompObj", compObj2007().bytes)}), 0);
    EXPECT_EQ(versionOf({storage(compObj2007().name, {})}), 0);
    EXPECT_EQ(versionOf({stream(compObj2007().name, {})}), 0);
    EXPECT_EQ(versionOf({storage("Inner", {compObj2007()})}), 0);
}

TEST_F(TemplateFormat, IsUnknownIfTheStreamEndsEarly) {
    const CompoundEntry whole = compObj2007();
    for (std::size_t size = 1; size < whole.bytes.size(); ++size) {
        CompoundEntry cut = whole;
        cut.bytes.resize(size);
        EXPECT_EQ(versionOf({cut}), 0) << size;
    }
}

TEST_F(TemplateFormat, LengthsPastTheEndAreNotFollowed) {
    const std::size_t secondLength = 32 + sizeof "Microsoft Project 12.0";
    for (const std::size_t place : {std::size_t{28}, secondLength}) {
        for (const std::uint8_t top : Bytes{0x01, 0x7F, 0x80, 0xFF}) {
            CompoundEntry entry = compObj2007();
            entry.bytes[place + 3] = top;
            EXPECT_EQ(versionOf({entry}), 0);
            std::fill_n(entry.bytes.begin() + static_cast<std::ptrdiff_t>(place), 4, top);
            EXPECT_EQ(versionOf({entry}), 0);
        }
    }
}

// Past the time in which a file's version is not remembered.
TEST_F(TemplateFormat, IsReadAgainOnceTheFileChanges) {
    EXPECT_EQ(versionOf("Microsoft Project 12.0", "MSProject.MPP12"), 2);
    const FileURL url = FileURL::fileURLWithPath(_folder.path("T.mpp"), false);
    std::this_thread::sleep_for(std::chrono::milliseconds(3100));
    EXPECT_EQ(formatVersionOfTemplateAtUrl(url), 2);
    EXPECT_EQ(formatVersionOfTemplateAtUrl(url), 2);
    EXPECT_THAT(_log.lines(), testing::Each(testing::StartsWith("opening a file at path ")));
    EXPECT_EQ(_log.lines().size(), 3U);

    EXPECT_EQ(versionOf("Microsoft Project 12.0", "MSProject.MPP14"), 3);
    std::filesystem::remove(url.path());
    EXPECT_EQ(formatVersionOfTemplateAtUrl(url), 0);
}

} // namespace
} // namespace brackwater::test
