#include "StreamsTest.h"

#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPViewStorageWriters.h"

#include <array>

namespace brackwater::test {
namespace {

class SummaryStreams : public StreamsTest {
protected:
    template <typename Writer>
    Bytes written() {
        output = std::make_shared<MemoryOutput>();
        Writer writer(std::make_shared<MemoryWriter>(output, "s", true), memoryStream({1, 2, 3}));
        EXPECT_TRUE(writer.writeDataForProject(&project)) << writer.failureReason();
        return stream("s");
    }
};

ByteImage propertySetHeader(std::size_t size, std::uint16_t properties, const std::array<std::uint16_t, 8>& formatID) {
    ByteImage image(size);
    image.word(0, 0xFFFE).word(4, 0x0105).word(6, 2).integer(24, 1);
    for (std::size_t i = 0; i < formatID.size(); ++i)
        image.word(28 + 2 * i, formatID[i]);
    image.integer(44, 48).integer(48, size - 48).word(52, properties);
    return image;
}

constexpr std::array<std::uint16_t, 8> kSummary = {0x85E0, 0xF29F, 0x4FF9, 0x1068, 0x91AB, 0x0008, 0x272B, 0xD9B3};
constexpr std::array<std::uint16_t, 8> kDocSummary = {0xD502, 0xD5CD, 0x2E9C, 0x101B, 0x9793, 0x0008, 0x2C2B, 0xAEF9};

void putText(ByteImage& image, std::size_t offset, std::string_view text) {
    image.integer(offset, 30).integer(offset + 4, text.size() + 2);
    for (std::size_t i = 0; i < text.size(); ++i)
        image.byte(offset + 8 + i, static_cast<std::uint8_t>(text[i]));
}

TEST_F(SummaryStreams, ATitleAloneMakesFiveProperties) {
    project.summaryInfo->title = "abc";
    // Values: 8 bytes, a text of 8 + 5, the revision of 12, the program of 8 + 22, 8 bytes.
    ByteImage expected = propertySetHeader(56 + 40 + 8 + 13 + 12 + 30 + 8, 5, kSummary);
    const std::array<std::uint32_t, 10> table = {1, 48, 2, 56, 9, 69, 18, 81, 19, 111};
    for (std::size_t i = 0; i < table.size(); ++i)
        expected.integer(56 + 4 * i, table[i]);
    constexpr std::size_t kValues = 96;
    expected.integer(kValues, 2).integer(kValues + 4, 1251);
    putText(expected, kValues + 8, "abc");
    expected.integer(kValues + 21, 30).integer(kValues + 25, 4).byte(kValues + 29, 0x31);
    putText(expected, kValues + 33, "Microsoft MPPProject");
    expected.integer(kValues + 63, 3);
    EXPECT_TRUE(sameBytes(written<MPP12ProjectSInfoWriter>(), expected));
}

TEST_F(SummaryStreams, EveryTextHasItsPropertyAndAnEmptyOneIsOne) {
    auto& info = *project.summaryInfo;
    info.title = "not \xC3\xA4scii"; // cannot be written
    info.author = "";
    info.keywords = info.comments = info.creator = "x";
    info.category = info.manager = info.company = "y";
    const auto ids = [](const Bytes& stream) {
        std::vector<std::uint32_t> result;
        for (std::size_t i = 0; i < wordAt(stream, 52); ++i)
            result.push_back(integerAt(stream, 56 + 8 * i));
        return result;
    };
    const Bytes summary = written<MPP12ProjectSInfoWriter>();
    EXPECT_EQ(ids(summary), (std::vector<std::uint32_t>{1, 2, 4, 5, 6, 8, 9, 18, 19}));
    const std::size_t title = 48 + integerAt(summary, 56 + 8 + 4);
    EXPECT_TRUE(sameBytes(slice(summary, title, 10), ByteImage(10).integer(0, 30).integer(4, 2)));
    const Bytes docSummary = written<MPP12ProjectDocSInfoWriter>();
    EXPECT_EQ(ids(docSummary), (std::vector<std::uint32_t>{1, 2, 14, 15}));
}

TEST_F(SummaryStreams, TheDocumentSummaryHasAlwaysOneProperty) {
    ByteImage expected = propertySetHeader(56 + 8 + 8, 1, kDocSummary);
    expected.integer(56, 1).integer(60, 16).integer(64, 2).integer(68, 1251);
    EXPECT_TRUE(sameBytes(written<MPP12ProjectDocSInfoWriter>(), expected));
    project.summaryInfo = nullptr;
    EXPECT_TRUE(sameBytes(written<MPP12ProjectDocSInfoWriter>(), expected));
}

TEST_F(SummaryStreams, StandardTextsAreHeldWhateverTheirCharacters) {
    auto& info = *project.summaryInfo;
    info.texts = MPPSummaryTexts::Standard;
    info.title = "\xC3\xA4\xE2\x82\xAC"; // in code page 1252: E4 80
    info.author = "\xCE\xA9";            // not there
    const Bytes summary = written<MPP12ProjectSInfoWriter>();
    const auto valueAt = [&summary](std::size_t property, std::size_t size) {
        return slice(summary, 48 + integerAt(summary, 56 + 8 * property + 4), size);
    };
    EXPECT_TRUE(sameBytes(valueAt(0, 8), ByteImage(8).integer(0, 2).integer(4, 1252)));
    EXPECT_TRUE(sameBytes(valueAt(1, 12), ByteImage(12).integer(0, 30).integer(4, 4).byte(8, 0xE4).byte(9, 0x80)));
    EXPECT_TRUE(sameBytes(valueAt(2, 12), ByteImage(12).integer(0, 31).integer(4, 2).word(8, 0x03A9)));
}

class SingleEntryStreams : public StreamsTest {
protected:
    void expectEntry(const ByteImage& fixedData, const ByteImage& record) {
        EXPECT_EQ(output->created, (std::vector<std::string>{"Var2Data", "VarMeta", "FixedData", "FixedMeta"}));
        EXPECT_TRUE(stream("Var2Data").empty());
        EXPECT_TRUE(sameBytes(stream("VarMeta"), ByteImage(24).integer(0, 0xFADFADBA)));
        EXPECT_TRUE(sameBytes(stream("FixedData"), fixedData));
        ByteImage header(16);
        header.integer(0, 0xFADFADBA).integer(4, 4).integer(8, 1);
        header.integer(12, fixedData.bytes().size());
        EXPECT_TRUE(sameBytes(slice(stream("FixedMeta"), 0, 16), header));
        EXPECT_TRUE(sameBytes(metaRecord(stream("FixedMeta"), record.bytes().size(), 0), record));
    }
};

TEST_F(SingleEntryStreams, AView) {
    ASSERT_TRUE(write<MPP12CViewWriter>());
    expectEntry(ByteImage(138).integer(0, 1).text(4, "&Gantt Chart"), ByteImage(10).integer(0, 0x20000).word(8, 0x6FF));
}

TEST_F(SingleEntryStreams, ATable) {
    ASSERT_TRUE(write<MPP12CTableWriter>());
    expectEntry(ByteImage(230).integer(0, 1).text(4, "&Entry"), ByteImage(10).integer(0, 0x10000).word(8, 0xDF));
}

TEST_F(SingleEntryStreams, AnEntryList) {
    ASSERT_TRUE(write<MPP12CEdlWriter>());
    expectEntry(ByteImage(160).integer(0, 1), ByteImage(11).integer(0, 0x10000).word(8, 0xBFF7));
}

} // namespace
} // namespace brackwater::test
