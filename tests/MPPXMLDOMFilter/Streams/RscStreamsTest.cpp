#include "StreamsTest.h"

#include "MPPXMLDOMFilter/Streams/MPP12RscWriter.h"
#include "support/ExpectException.h"

#include <initializer_list>

namespace brackwater::test {
namespace {

constexpr std::size_t kHeaderRows = 3;
constexpr std::size_t kDefaultRow = 3;
constexpr std::size_t kFirstRow = 4;

class ResourceStreams : public StreamsTest {
protected:
    bool writeResources() { return write<MPP12RscWriter>(); }
    [[nodiscard]] Bytes fixedRow(std::size_t index) const {
        return slice(stream("FixedData"), 16 * kHeaderRows + 188 * (index - kHeaderRows), 188);
    }
    [[nodiscard]] Bytes fixedMeta(std::size_t index) const { return metaRecord(stream("FixedMeta"), 37, index); }
    [[nodiscard]] Bytes fixed2Row(std::size_t index) const { return slice(stream("Fixed2Data"), 40 * index, 40); }
    [[nodiscard]] Bytes fixed2Meta(std::size_t index) const { return metaRecord(stream("Fixed2Meta"), 49, index); }
    [[nodiscard]] std::vector<VarMetaRecord> varRecords() const {
        return varMetaRecords(stream("VarMeta"), stream("Var2Data"), 0x0C40);
    }
};

// The sizes of the payloads in the order in which they stand.
std::vector<std::uint32_t> payloadSizes(const Bytes& var2Data) {
    std::vector<std::uint32_t> sizes;
    for (std::size_t offset = 0; offset < var2Data.size(); offset += 4 + sizes.back())
        sizes.push_back(integerAt(var2Data, offset));
    return sizes;
}

ByteImage metaOfPlainResource(std::size_t index) {
    ByteImage record(37);
    record.integer(0, 0x00040000).integer(4, 48 + 188 * (index - kHeaderRows)).byte(8, 3);
    record.byte(9, 0x92).word(10, 0xFFFF).byte(12, 0xFF).byte(13, 0x3F);
    return record;
}

TEST_F(ResourceStreams, AProjectWithoutResourcesHoldsTheDefaultRow) {
    preprocess();
    ASSERT_TRUE(writeResources()) << failureReason;
    EXPECT_TRUE(sameBytes(stream("Var2Data"), ByteImage(20).integer(0, 16)));
    EXPECT_EQ(idsAndTypes(varRecords()), "0:739");
    const ByteImage row =
        ByteImage(188).word(8, 2).word(10, 2).word(12, 3).integer(16, 2).noDate(20).noDate(24).real(44, 10000);
    EXPECT_TRUE(sameBytes(fixedRow(kDefaultRow), row));
    EXPECT_EQ(stream("FixedData").size(), 48U + 188U);
    const ByteImage meta =
        ByteImage(37).integer(0, 0x00010000).integer(4, 48).word(8, 0x3203).word(10, 0xFFFF).word(12, 0x07FF);
    EXPECT_TRUE(sameBytes(fixedMeta(kDefaultRow), meta));
    EXPECT_TRUE(sameBytes(fixedMeta(1), ByteImage(37).integer(0, 4).integer(4, 16).integer(8, 4)));
    // The default resource's GUID is a constant of the format.
    const Guid guid(Guid::Bytes{0x7E, 0x8B, 0xCB, 0xA0, 0x8C, 0x2A, 0x6D, 0x43, 0, 0, 0, 0, 0, 0, 0, 0xFF});
    EXPECT_TRUE(sameBytes(fixed2Row(kDefaultRow), ByteImage(40).guid(0, guid).real(16, 1.0).guid(24, guid)));
    EXPECT_TRUE(sameBytes(fixed2Meta(kDefaultRow), ByteImage(49).integer(4, 120).integer(8, 0x43).integer(37, 2)));
    EXPECT_TRUE(sameBytes(fixed2Meta(2), ByteImage(49).integer(4, 80)));
    EXPECT_EQ(stream("Props"), templateStreams["Props"]);
}

TEST_F(ResourceStreams, ARowHoldsEachFieldAtItsOffset) {
    addResource("first");
    MPPResource& resource = addResource("second");
    resource.setResourceTypeMaterial();
    resource.availableFromDate = dateAt(1, 10);
    resource.availableToDate = dateAt(2, 20);
    resource.standartRate = 12.5;
    resource.maxUnits = 50;
    resource.costPerUse = 2.5;
    resource.baseline0 = std::make_shared<MPPResourceBaseline>(MPPResourceBaseline{2, 3});
    preprocess();
    ASSERT_TRUE(writeResources()) << failureReason;
    ByteImage expected(188);
    expected.integer(0, 2).integer(4, 2).word(8, 2).word(10, 2).word(12, 3).word(14, 1).integer(16, 5).date(20, 10, 1);
    expected.date(24, 20, 2).real(28, 12.5).real(44, 5000).real(68, 120000).real(84, 250).real(148, 300);
    EXPECT_TRUE(sameBytes(fixedRow(kFirstRow + 1), expected));
    const ByteImage expected2 = ByteImage(40).guid(0, resource.GUID()).real(16, 3.0).guid(24, resource.GUID());
    EXPECT_TRUE(sameBytes(fixed2Row(kFirstRow + 1), expected2));
}

TEST_F(ResourceStreams, TheIndexHasAnotherOrderThanTheData) {
    MPPResource& resource = addResource("Ada");
    resource.initials = "A";
    resource.group = ""; // counts as present
    resource.customFieldsText = {"", "x"};
    resource.baselines = {std::make_shared<MPPResourceBaseline>(),
                          std::make_shared<MPPResourceBaseline>(MPPResourceBaseline{0.1, 0.07}),
                          std::make_shared<MPPResourceBaseline>()};
    resource.code = "co";
    resource.emailAddress = "mail@x";
    resource.notes = "";
    preprocess(); // the first baseline moves out
    ASSERT_TRUE(writeResources()) << failureReason;

    const auto records = varRecords();
    EXPECT_EQ(idsAndTypes(records), "0:739 1:1 1:2 1:3 1:9 1:342 1:343 1:352 1:353 1:10 1:20 1:35 1:85 1:739");
    const auto sizes = payloadSizes(stream("Var2Data"));
    ASSERT_EQ(sizes.size(), 14U);
    // Data: two headers, name, the number 2, initials, group, text, two baselines of two elements, code, mail, notes.
    const std::vector<std::uint32_t> expectedSizes{16, 16, 8, 4, 4, 2, 4, 8, 12, 8, 12, 6, 14};
    EXPECT_EQ(std::vector(sizes.begin(), sizes.end() - 1), expectedSizes);
    EXPECT_TRUE(sameBytes(records.at(1).payload, ByteImage(8).text(0, "Ada")));
    EXPECT_TRUE(sameBytes(records.at(3).payload, ByteImage(2)));
    EXPECT_TRUE(sameBytes(records.at(5).payload, ByteImage(8).real(0, 0.1 * 60000)));
    EXPECT_TRUE(sameBytes(records.at(6).payload, ByteImage(12).real(0, 0.07 * 100)));
    EXPECT_TRUE(sameBytes(records.at(11).payload, ByteImage(14).text(0, "mail@x")));
    EXPECT_TRUE(sameBytes(records.at(12).payload, ByteImage(4).integer(0, 2)));
}

TEST_F(ResourceStreams, TextFieldsHaveTypesByPosition) {
    addResource("Ada").customFieldsText.assign(30, "x");
    preprocess();
    ASSERT_TRUE(writeResources()) << failureReason;
    EXPECT_EQ(idsAndTypes(varRecords()),
              "0:739 1:1 1:8 1:9 1:30 1:31 1:32 1:97 1:98 1:99 1:100 1:101 1:225 1:226 1:227 1:228 1:229 1:230 "
              "1:231 1:232 1:233 1:234 1:235 1:236 1:237 1:238 1:239 1:240 1:241 1:242 1:243 1:244 1:85 1:739");
}

TEST_F(ResourceStreams, MetaFollowsWhatAResourceHas) {
    addResource("plain");
    MPPResource& full = addResource("full");
    full.group = "";
    full.code = "";
    full.notes = "";
    full.customFieldsText.assign(30, "");
    for (const std::size_t position : std::initializer_list<std::size_t>{1, 4, 5, 12, 13, 20, 21, 28, 29, 30})
        full.customFieldsText[position - 1] = "x";
    full.baselines = {std::make_shared<MPPResourceBaseline>(), std::make_shared<MPPResourceBaseline>()};
    MPPResource& emptyTexts = addResource("empty texts");
    emptyTexts.customFieldsText = {""};
    preprocess();
    ASSERT_TRUE(writeResources()) << failureReason;

    EXPECT_TRUE(sameBytes(fixedMeta(kFirstRow), metaOfPlainResource(kFirstRow).byte(9, 0x12)));
    ByteImage expected = metaOfPlainResource(kFirstRow + 1);
    expected.integer(0, 0x000F0000).byte(9, 0x96).byte(13, 0xFF).byte(14, 0x91).byte(15, 0x81).byte(16, 0x81);
    expected.byte(17, 0x81).byte(18, 0x03).byte(33, 0x40);
    EXPECT_TRUE(sameBytes(fixedMeta(kFirstRow + 1), expected));
    EXPECT_TRUE(sameBytes(fixedMeta(kFirstRow + 2), metaOfPlainResource(kFirstRow + 2).integer(0, 0x00050000)));
    ByteImage expected2(49);
    expected2.integer(4, 40 * (kFirstRow + 1)).byte(8, 0x47).integer(37, 2).integer(43, 0xCCCCCCCC).byte(47, 0xCC);
    EXPECT_TRUE(sameBytes(fixed2Meta(kFirstRow + 1), expected2));
}

TEST_F(ResourceStreams, KindsDifferInTwoBytes) {
    addResource("first").setResourceTypeCost(); // a first resource is told apart only when it is a work resource
    addResource("work");
    addResource("material").setResourceTypeMaterial();
    addResource("cost").setResourceTypeCost();
    project.resources[2]->notes = "n";
    preprocess();
    ASSERT_TRUE(writeResources()) << failureReason;
    EXPECT_EQ(fixedMeta(kFirstRow).at(9), 0xA0);
    EXPECT_EQ(fixedMeta(kFirstRow + 1).at(9), 0x92);
    EXPECT_EQ(fixedMeta(kFirstRow + 2).at(9), 0xA4);
    EXPECT_EQ(fixed2Meta(kFirstRow + 1).at(8), 0x47);
    EXPECT_EQ(fixed2Meta(kFirstRow + 2).at(8), 0x43);
    EXPECT_EQ(fixed2Meta(kFirstRow + 3).at(8), 0x53);
}

TEST_F(ResourceStreams, ThePlaceInTheSheetIsTheUpperHalfOfADouble) {
    const auto place = MPP12RscWriter::calculateResourcePositionInResourceSheet;
    EXPECT_EQ(place(0), 0x3FF00000U);
    EXPECT_EQ(place(2), 0x40080000U);
    EXPECT_EQ(place(4), 0x40140000U);
    EXPECT_EQ(place(255), 0x40700000U);
    EXPECT_EQ(place(256), 0x40701000U);
    EXPECT_EQ(place(0x3FFFF), 0x41100000U);
    EXPECT_EQ(place(0x40000), 0U);
}

TEST_F(ResourceStreams, LimitsAreMetInVar2Data) {
    MPPResource& resource = addResource("r");
    resource.baselines.assign(12, std::make_shared<MPPResourceBaseline>()); // one moves out, eleven stay
    preprocess();
    EXPECT_FALSE(writeResources());
    EXPECT_EQ(failureReason, "UnknownBaselineWorkException: Baseline work type is unknown for index 11");
    EXPECT_EQ(output->created.back(), "Var2Data");

    resource.baselines.clear();
    resource.customFieldsText.resize(31);
    resource.customFieldsText[30] = "x";
    output = std::make_shared<MemoryOutput>();
    EXPECT_FALSE(writeResources());
    EXPECT_EQ(failureReason, "UnknownTextFieldException: Text field type is unknown for index 31");
    expectException("UnknownBaselineCostException", "Baseline cost type is unknown for index 11",
                    [] { static_cast<void>(MPP12RscWriter::getCostBaselineTypeForIndex(11)); });
    EXPECT_EQ(MPP12RscWriter::getWorkBaselineTypeForIndex(10), 432);
    EXPECT_EQ(MPP12RscWriter::getCostBaselineTypeForIndex(10), 433);
}

TEST_F(ResourceStreams, FieldNamesHaveOneElement) {
    project.customResourceFieldNames = {"Color", "", "Size"};
    preprocess();
    ASSERT_TRUE(writeResources()) << failureReason;
    constexpr std::uint32_t kPayload = 12 + 3 * 8 + 3 * 104 + 36;
    ByteImage expected(16 + 12 + kPayload);
    expected.integer(0, 12 + 12 + kPayload).integer(4, 12 + 12 + kPayload).integer(8, 92532).word(12, 1);
    expected.integer(16, kPayload).integer(20, 0x04400001);
    expected.integer(28, 8 + 24 + 312).integer(32, 8 + 24 + 312).integer(36, 3);
    expected.word(40, 8).word(42, 0x0C40).integer(44, 32);
    expected.word(48, 9).word(50, 0x0C40).integer(52, 136);
    expected.word(56, 30).word(58, 0x0C40).integer(60, 240);
    expected.text(64, "Color").text(64 + 208, "Size");
    for (const std::size_t i : std::initializer_list<std::size_t>{0, 1, 3, 4, 6, 7})
        expected.integer(64 + 312 + 4 * i, 8);
    EXPECT_TRUE(sameBytes(stream("Props"), expected));
}

} // namespace
} // namespace brackwater::test
