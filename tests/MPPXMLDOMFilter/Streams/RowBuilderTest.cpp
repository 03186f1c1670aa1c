#include "MPPXMLDOMFilter/Streams/RowBuilder.h"

#include "MPPXMLDOMFilter/Streams/IndexRecord.h"
#include "support/ExpectException.h"

namespace brackwater::test {
namespace {

TEST(Rows, AFieldBesideItsOffsetFails) {
    RowBuilder<8> row;
    row.at(0).word(1);
    expectAssertion("Fields of a row of 8 bytes reach to offset 2, not 4.", [&] { row.at(4); });
    expectAssertion("Fields of a row of 8 bytes reach to offset 2, not 0.", [&] { row.at(0); });
}

TEST(Rows, ARowOfAnotherSizeFailsAndIsNotWritten) {
    MPPData data;
    RowBuilder<8> row;
    row.at(0).integer(1);
    expectAssertion("Fields of a row of 8 bytes reach to offset 4, not 8.", [&] { row.end(data); });
    EXPECT_EQ(data.dataSize(), 0U);
    expectAssertion("Fields of a row of 8 bytes reach to offset 4, not 12.", [&] { row.real(1.0); });
}

TEST(Rows, AnIndexRecordSetsTheBitOfItsOwnRowsAlone) {
    IndexRecord<10, 100> record;
    record.bit(100);
    record.bits(107, 109);
    record.bit(115, true);
    record.bit(114, false);
    expectAssertion("Row 99 of a field map is not one of the 16 from 100 on.", [&] { record.bit(99); });
    expectAssertion("Row 116 of a field map is not one of the 16 from 100 on.", [&] { record.bit(116); });

    const auto fixedData = std::make_shared<MPPFixedData>();
    fixedData->startNewElement();
    MPPFixedMeta meta(fixedData);
    record.end(meta, 5);
    EXPECT_EQ(std::vector(meta.data().begin(), meta.data().end()),
              (std::vector<std::uint8_t>{5, 0, 0, 0, 0, 0, 0, 0, 0x81, 0x83}));
}

} // namespace
} // namespace brackwater::test
