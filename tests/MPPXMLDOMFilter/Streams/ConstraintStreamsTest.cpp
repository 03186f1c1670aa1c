#include "StreamsTest.h"

#include "MPPXMLDOMFilter/Streams/MPPConstraintWriters.h"

#include <limits>

namespace brackwater::test {
namespace {

class LinkStreams : public StreamsTest {
protected:
    LinkStreams() : first(addTask("a")), second(addTask("b")) {}

    template <typename Writer>
    std::uint32_t lagWritten(double lag, bool isPercentage) {
        project.constraints.clear();
        MPPConstraint& link = addLink(&first, &second);
        link.lag = lag;
        link.isPercentage = isPercentage;
        output = std::make_shared<MemoryOutput>();
        EXPECT_TRUE(write<Writer>()) << failureReason;
        EXPECT_EQ(wordAt(stream("FixedData"), 14), isPercentage ? 19 : 7);
        return integerAt(stream("FixedData"), 16);
    }

    MPPTask& first;
    MPPTask& second;
};

TEST_F(LinkStreams, WithoutLinksTheStreamsAreEmpty) {
    ASSERT_TRUE(write<MPP12ConstraintWriter>()) << failureReason;
    EXPECT_TRUE(stream("FixedData").empty());
    EXPECT_TRUE(stream("Fixed2Data").empty());
    EXPECT_TRUE(sameBytes(stream("FixedMeta"), ByteImage(16).integer(0, 0xFADFADBA).integer(4, 4)));
    EXPECT_TRUE(sameBytes(stream("Fixed2Meta"), ByteImage(16).integer(0, 0xFADFADBA).integer(4, 4)));
}

TEST_F(LinkStreams, ALinkHasARowInEachStream) {
    preprocess();
    addLink(&first, &second);
    MPPConstraint& link = addLink(&second, nullptr);
    link.ID = 0x700000005;
    link.constraintType = 3;
    link.lag = 480.9;
    ASSERT_TRUE(write<MPP12ConstraintWriter>()) << failureReason;
    const ByteImage row = ByteImage(20).integer(0, 5).integer(4, 2).word(12, 3).word(14, 7).integer(16, 480);
    EXPECT_TRUE(sameBytes(slice(stream("FixedData"), 20, 20), row));
    EXPECT_EQ(integerAt(stream("FixedData"), 8), 2U);
    EXPECT_TRUE(sameBytes(metaRecord(stream("FixedMeta"), 10, 1), ByteImage(10).integer(4, 20).word(8, 249)));
    const ByteImage row2 = ByteImage(48).guid(0, link.GUID()).guid(16, second.GUID());
    EXPECT_TRUE(sameBytes(slice(stream("Fixed2Data"), 48, 48), row2));
    EXPECT_TRUE(sameBytes(metaRecord(stream("Fixed2Meta"), 9, 1), ByteImage(9).integer(4, 48).byte(8, 7)));
}

TEST_F(LinkStreams, The2007LayoutKeepsALagThatThe2010LayoutDivides) {
    EXPECT_EQ(lagWritten<MPP12ConstraintWriter>(480, false), 480U);
    EXPECT_EQ(lagWritten<MPP14ConstraintWriter>(480, false), 80U);
    EXPECT_EQ(lagWritten<MPP12ConstraintWriter>(-7.9, false), 0xFFFFFFF9U);
    EXPECT_EQ(lagWritten<MPP14ConstraintWriter>(-13, false), 0xFFFFFFFEU);
    EXPECT_EQ(lagWritten<MPP12ConstraintWriter>(50.7, true), 50U);
    EXPECT_EQ(lagWritten<MPP14ConstraintWriter>(50.7, true), 50U);
    EXPECT_EQ(lagWritten<MPP12ConstraintWriter>(1e12, true), 0x7FFFFFFFU);
    EXPECT_EQ(lagWritten<MPP12ConstraintWriter>(-1e12, false), 0x80000000U);
    EXPECT_EQ(lagWritten<MPP14ConstraintWriter>(std::numeric_limits<double>::quiet_NaN(), true), 0U);
}

TEST_F(LinkStreams, VarMetaIsTheTemplatesInBothLayoutsAndPropsInOne) {
    templateStreams["Var2Data"] = {9};
    ASSERT_TRUE(write<MPP12ConstraintWriter>()) << failureReason;
    EXPECT_EQ(output->created,
              (std::vector<std::string>{"VarMeta", "FixedData", "FixedMeta", "Fixed2Data", "Fixed2Meta", "Props"}));
    EXPECT_EQ(stream("VarMeta"), templateStreams["VarMeta"]);
    EXPECT_EQ(stream("Props"), templateStreams["Props"]);

    output = std::make_shared<MemoryOutput>();
    templateStreams.erase("Props");
    ASSERT_TRUE(write<MPP14ConstraintWriter>()) << failureReason;
    EXPECT_EQ(output->created,
              (std::vector<std::string>{"VarMeta", "FixedData", "FixedMeta", "Fixed2Data", "Fixed2Meta"}));

    EXPECT_FALSE(write<MPP12ConstraintWriter>());
    EXPECT_EQ(failureReason, "ReadFromStreamException: Attempt to read Props stream failed");
    templateStreams = {{"Props", {1}}};
    EXPECT_FALSE(write<MPP14ConstraintWriter>());
    EXPECT_EQ(failureReason, "ReadFromStreamException: Attempt to read VarMeta stream failed");
}

} // namespace
} // namespace brackwater::test
