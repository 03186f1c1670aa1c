#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Container/MPPFormatReader.h"
#include "support/CompoundFile.h"
#include "support/LogCapture.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brackwater::test {
namespace {

class Reading : public testing::Test {
protected:
    /// A reader of a file with these bytes, opened if possible.
    std::unique_ptr<MPPFormatReader> readerOf(const Bytes& bytes) {
        writeFile(_folder.path("T.mpp"), bytes);
        auto reader = std::make_unique<MPPFormatReader>(FileURL::fileURLWithPath(_folder.path("T.mpp"), false));
        _opened = reader->open();
        return reader;
    }

    CompoundFileLibrary _library;
    TempFolder _folder;
    LogCapture _log;
    bool _opened = false;
};

TEST_F(Reading, UnopenedReaderHasNothing) {
    MPPFormatReader reader(FileURL::fileURLWithPath("/nowhere/T.mpp", false));
    EXPECT_EQ(reader.numberOfChildren(), 0);
    EXPECT_EQ(reader.getDataSize(), -1);
    EXPECT_EQ(reader.getName(), "");
    EXPECT_FALSE(reader.createReaderForChildAtIndex(0));
    EXPECT_FALSE(reader.createReaderForChildWithName("a"));
    EXPECT_FALSE(reader.open());
    EXPECT_EQ(_log.lines(), std::vector<std::string>{"opening a file at path /nowhere/T.mpp"});
}

TEST_F(Reading, DistinguishesStoragesFromStreams) {
    const auto root = readerOf(bytesOfCompoundFile({storage("Empty", {}), stream("Data", patternBytes(5000))}));
    ASSERT_TRUE(_opened);
    EXPECT_TRUE(root->open()); // already open: logs nothing
    EXPECT_EQ(_log.lines().size(), 1U);
    EXPECT_EQ(root->numberOfChildren(), 2);
    const auto empty = root->createReaderForChildWithName("Empty");
    ASSERT_TRUE(empty);
    EXPECT_TRUE(empty->isDirectory());
    EXPECT_EQ(empty->numberOfChildren(), 0);
    EXPECT_FALSE(empty->readAll());

    const auto data = root->createReaderForChildAtIndex(0);
    ASSERT_TRUE(data);
    EXPECT_EQ(data->getName(), "Data");
    EXPECT_EQ(data->numberOfChildren(), -1);
    EXPECT_EQ(data->getDataSize(), 5000);
    EXPECT_FALSE(data->createReaderForChildAtIndex(0));
    EXPECT_EQ(data->readAll(), patternBytes(5000));
    EXPECT_FALSE(data->readAll()) << "a stream is read once through one reader";

    EXPECT_FALSE(root->createReaderForChildAtIndex(2));
    EXPECT_FALSE(root->createReaderForChildAtIndex(-1));
    EXPECT_FALSE(root->createReaderForChildWithName("data"));
}

TEST_F(Reading, BufferOfAnotherSizeIsRejected) {
    const auto root = readerOf(bytesOfCompoundFile({stream("Data", patternBytes(10))}));
    Bytes tooSmall(9);
    Bytes tooLarge(11);
    EXPECT_FALSE(root->createReaderForChildAtIndex(0)->getData(tooSmall));
    EXPECT_FALSE(root->createReaderForChildAtIndex(0)->getData(tooLarge));
}

TEST_F(Reading, StreamLargerThanTheFileAllocatesNoMemory) {
    Bytes bytes = bytesOfCompoundFile({stream("Data", patternBytes(6000))});
    // The size of a stream is in its directory entry, 120 bytes after the entry's name.
    const Bytes name{'D', 0, 'a', 0, 't', 0, 'a', 0};
    const auto entry = std::search(bytes.begin(), bytes.end(), name.begin(), name.end());
    ASSERT_NE(entry, bytes.end());
    std::fill(entry + 120, entry + 124, std::uint8_t{0x7F});
    const auto root = readerOf(bytes);
    const auto data = root->createReaderForChildAtIndex(0);
    EXPECT_TRUE(!data || !data->readAll());
}

} // namespace
} // namespace brackwater::test
