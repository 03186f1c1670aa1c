#include "MPPXMLDOMFilter/Streams/RowBuilder.h"

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

TEST(Rows, ARecordBeginsBehindWhatIsWrittenAlready) {
    MPPData data;
    MetaRecordBuilder<12> record;
    record.at(8).byte(0x11);
    record.at(9).zeroes(1);
    record.at(10).word(0x2233);
    record.end(data);
    EXPECT_EQ(std::vector(data.data().begin(), data.data().end()), (std::vector<std::uint8_t>{0x11, 0, 0x33, 0x22}));
}

} // namespace
} // namespace brackwater::test
