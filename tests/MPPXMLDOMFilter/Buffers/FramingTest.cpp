#include "BytesOf.h"

#include "MPPXMLDOMFilter/Buffers/MPP12VarMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPProps.h"
#include "Platform/Values/Exception.h"
#include "support/ExpectException.h"

#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

using Words = std::vector<std::uint32_t>;
constexpr std::uint32_t kMetaMagic = 0xFADFADBA;

/// Adds an element whose payload is `size` bytes of `size`.
void addElement(MPPVar2Data& data, std::uint64_t type, std::uint64_t id, std::uint8_t size) {
    data.startNewElementWithType(type, id);
    data.writeData(Bytes(size, size));
    data.closeCurrentElement();
}

void addRow(MPPFixedData& data, std::size_t size) {
    data.startNewElement();
    data.writeZeroesBlockOfSize(size);
    data.closeCurrentElement();
}

TEST(MarkedElements, RememberOffsetsOfTheWholeStreamThroughFlushes) {
    MPPFixedData rows;
    addRow(rows, 10);
    rows.clearBuffer();
    EXPECT_EQ(rows.dataSize(), 0U);
    EXPECT_EQ(rows.cumulativeDataSize(), 10U);
    EXPECT_EQ(rows.startNewElement(), 1U);
    rows.writeInteger(5);
    rows.closeCurrentElement();
    addRow(rows, 1);
    EXPECT_EQ(rows.elementsCount(), 3U);
    EXPECT_EQ(rows.offsetOfElementAtIndex(0), 0U);
    EXPECT_EQ(rows.offsetOfElementAtIndex(1), 10U);
    EXPECT_EQ(rows.offsetOfElementAtIndex(2), 14U);
    expectException(kRangeException, "Index out of bounds", [&] { (void)rows.offsetOfElementAtIndex(3); });
}

TEST(MarkedElements, AreOpenOneAtATime) {
    MPPFixedData rows;
    rows.startNewElement();
    rows.writeInteger(1);
    expectException(kOffsetMarkedDataException,
                    "Attempt to create a new element while the current element is not closed",
                    [&] { rows.startNewElement(); });
    expectException(kOffsetMarkedDataException, "Attempt to clear buffer while element is not closed",
                    [&] { rows.clearBuffer(); });
    rows.closeCurrentElement();
    expectException(kOffsetMarkedDataException, "Attempt to close an already closed element",
                    [&] { rows.closeCurrentElement(); });
    EXPECT_EQ(rows.elementsCount(), 1U);
    EXPECT_EQ(rows.dataSize(), 4U);
}

TEST(MarkedElements, WithFramesRefuseAClosingTooMuchBeforeTheyPatch) {
    constexpr std::string_view kReason = "Attempt to close an already closed element";
    MPPVar2Data var2;
    addElement(var2, 1, 1, 2);
    var2.writeZeroesBlockOfSize(3);
    const Bytes before = bytesOf(var2);
    expectException(kOffsetMarkedDataException, kReason, [&] { var2.closeCurrentElement(); });
    EXPECT_EQ(bytesOf(var2), before);
    MPPProps props;
    expectException(kOffsetMarkedDataException, kReason, [&] { props.closeCurrentElement(); });
}

TEST(Var2Data, SecondElementOfAPairReplacesTheFirstButCounts) {
    MPPVar2Data var2;
    addElement(var2, 7, 5, 1);
    addElement(var2, 7, 5, 1);
    addElement(var2, 8, 5, 1);
    EXPECT_EQ(var2.offsetOfElementWithType(7, 5), 5U);
    EXPECT_EQ(var2.numberOfElementsForID(5), 3U);
    EXPECT_EQ(var2.numberOfElementsForID(6), 0U);
    expectException(kRangeException, "No data in Var2Data for (type, id) pair specified",
                    [&] { (void)var2.offsetOfElementWithType(5, 7); });
}

TEST(VarMeta, NextRecordsTakeTheElementsInTurn) {
    const auto var2 = std::make_shared<MPPVar2Data>();
    addElement(*var2, 1, 1, 4);
    addElement(*var2, 2, 1, 4);
    MPP12VarMeta meta(var2, 0);
    meta.writeNextElementMetaWithID(0xAAAA00000001, 0xBBBB0001); // low 32 and low 16 bits
    meta.writeNextElementMetaWithID(1, 2);
    EXPECT_EQ(wordsOf(meta), (Words{1, 0, 1, /**/ 1, 8, 2}));
    constexpr std::string_view kReason = "Attempt to write too many elements into VarMeta";
    expectException(kRangeException, kReason, [&] { meta.writeNextElementMetaWithID(1, 3); });
    expectException(kRangeException, kReason, [&] { meta.writeElementMetaWithType(1, 1); });
    EXPECT_EQ(meta.dataSize(), 24U);
}

TEST(FixedMeta, GivesCountSizeAndTheOffsetOfEachRow) {
    const auto rows = std::make_shared<MPPFixedData>();
    addRow(*rows, 16);
    rows->clearBuffer();
    addRow(*rows, 5);
    MPPFixedMeta meta(rows);
    meta.writeMetaHeader();
    meta.writeNextElementStartWithInt(0xCAFE);
    meta.writeInteger(77); // the rest of a record is its stream's
    meta.writeNextElementStartWithInt(0);
    EXPECT_EQ(wordsOf(meta), (Words{kMetaMagic, 4, 2, 21, /**/ 0xCAFE, 0, 77, /**/ 0, 16}));
    expectException(kRangeException, "Attempt to write too many elements into FixedMeta",
                    [&] { meta.writeNextElementStartWithInt(0); });
}

TEST(Props, StayInMemoryUntilClosed) {
    MPPProps props;
    props.open();
    props.clearBuffer();
    EXPECT_EQ(props.dataSize(), 16U);
    props.close();
    props.clearBuffer();
    EXPECT_EQ(props.dataSize(), 0U);
    EXPECT_EQ(props.cumulativeDataSize(), 16U);
}

TEST(Props, CountOnlySixteenBits) {
    MPPProps props;
    props.open();
    for (int i = 0; i < 0x10001; ++i) {
        props.startNewElementForType(1, 0);
        props.closeCurrentElement();
    }
    props.close();
    EXPECT_EQ(wordsOf(props)[3], 1U);
    EXPECT_EQ(wordsOf(props)[0], 12U + 12U * 0x10001U);
}

} // namespace
} // namespace brackwater::test
