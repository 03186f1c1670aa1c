#include "MPPXMLDOMFilter/Streams/MPP12RscWriter.h"

#include "MPPXMLDOMFilter/Buffers/MPPProps.h"
#include "MPPXMLDOMFilter/Streams/CustomFieldProps.h"
#include "MPPXMLDOMFilter/Streams/FieldMapRows.h"
#include "MPPXMLDOMFilter/Streams/IndexRecord.h"
#include "MPPXMLDOMFilter/Streams/RecordValues.h"
#include "MPPXMLDOMFilter/Streams/RowBuilder.h"
#include "MPPXMLDOMFilter/Streams/StorageElements.h"
#include "MPPXMLDOMFilter/Streams/StreamOutput.h"

#include <algorithm>
#include <array>
#include <bit>

namespace brackwater {

namespace {

constexpr std::string_view kUnknownBaselineWorkException = "UnknownBaselineWorkException";
constexpr std::string_view kUnknownBaselineCostException = "UnknownBaselineCostException";

constexpr std::uint16_t kDescriptionEnding = 3136; // 0x0C40
constexpr std::size_t kFixedRowSize = 188;
constexpr std::size_t kFixed2RowSize = 40;
using ResourceRecord = IndexRecord<37>;
using SecondResourceRecord = IndexRecord<49, ResourceRow::SecondBlock>;

// Types of elements in "Var2Data".
constexpr std::uint64_t kHeaderType = 739; // meaning unknown: 16 zero bytes
constexpr std::uint64_t kHeaderOwnerID = 0;
constexpr std::size_t kHeaderElementSize = 16;
constexpr std::uint64_t kNameType = 1;
constexpr std::uint64_t kInitialsType = 2;
constexpr std::uint64_t kGroupType = 3;
constexpr std::uint64_t kCodeType = 10;
constexpr std::uint64_t kNotesType = 20;
constexpr std::uint64_t kEmailAddressType = 35;
constexpr std::uint64_t kType85 = 85; // meaning unknown: always 2
constexpr std::uint64_t kBookingTypeType = 699;
constexpr std::uint64_t kMaterialLabelType = 299;
constexpr std::uint64_t kWindowsAccountType = 311;
constexpr std::array<std::uint16_t, 30> kTextFieldTypes = {8,   9,   30,  31,  32,  97,  98,  99,  100, 101,
                                                           225, 226, 227, 228, 229, 230, 231, 232, 233, 234,
                                                           235, 236, 237, 238, 239, 240, 241, 242, 243, 244};
constexpr std::array<std::uint16_t, 10> kWorkBaselineTypes = {342, 352, 362, 372, 382, 392, 402, 412, 422, 432};
constexpr std::array<std::uint16_t, 10> kCostBaselineTypes = {343, 353, 363, 373, 383, 393, 403, 413, 423, 433};

// The format's units: thousandths of a minute and hundredths of money.
constexpr double kWorkScale = 60000.0;
constexpr double kMoneyScale = 100.0;

// A resource without a first baseline shows zeros.
MPPResourceBaseline firstBaselineOf(const MPPResource& resource) {
    return resource.baseline0 ? *resource.baseline0 : MPPResourceBaseline{};
}

} // namespace

std::uint16_t MPP12RscWriter::getTextFieldTypeForIndex(std::size_t index) {
    return typeForIndex(kTextFieldTypes, index, kUnknownTextFieldException, kTextFieldTypeUnknown);
}

std::uint16_t MPP12RscWriter::getWorkBaselineTypeForIndex(std::size_t index) {
    return typeForIndex(kWorkBaselineTypes, index, kUnknownBaselineWorkException,
                        "Baseline work type is unknown for index");
}

std::uint16_t MPP12RscWriter::getCostBaselineTypeForIndex(std::size_t index) {
    return typeForIndex(kCostBaselineTypes, index, kUnknownBaselineCostException,
                        "Baseline cost type is unknown for index");
}

std::uint32_t MPP12RscWriter::calculateResourcePositionInResourceSheet(std::int32_t n) {
    constexpr std::int32_t kLastPlace = 0x3FFFF;
    if (n > kLastPlace)
        return 0;
    return static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(static_cast<double>(n) + 1.0) >> 32);
}

RowStorageLayout MPP12RscWriter::layout() const {
    return {.kind = MPPRowKind::Resource,
            .descriptionEnding = kDescriptionEnding,
            .headerRows = {.count = 3,
                           .bit = ResourceRow::Header,
                           .fixedMetaSize = ResourceRecord::kSize,
                           .fixed2RowSize = kFixed2RowSize,
                           .fixed2MetaSize = SecondResourceRecord::kSize}};
}

// "Var2Data" and its index. The elements are found by their owner and type, and stand in two orders.

namespace {

enum class Order { OfPayloads, OfIndex };

// The elements of a resource, type beside payload.
template <typename Visitor>
void visitElements(const MPPResource& resource, Order order, Visitor element) {
    const auto textIf = [&](bool isThere, std::uint64_t type, const std::optional<std::string>& text) {
        if (isThere)
            element(type, unicodeText(textOf(text)));
    };
    const auto name = [&] { textIf(true, kNameType, resource.name); };
    const auto element85 = [&] { element(kType85, [](MPPData& data) { data.writeInteger(2); }); };
    const auto element739 = [&] { element(kHeaderType, zeroes(kHeaderElementSize)); };
    const auto emailAddress = [&] { textIf(resource.hasEmailAddress(), kEmailAddressType, resource.emailAddress); };
    const auto notes = [&] {
        if (resource.hasNotes())
            element(kNotesType, [&](MPPData& data) { writeNotes(data, resource); });
    };
    const auto inBothOrders = [&] {
        textIf(resource.hasInitials(), kInitialsType, resource.initials);
        textIf(resource.hasGroup(), kGroupType, resource.group);
        for (std::size_t i = 0; i < resource.customFieldsText.size(); ++i)
            if (!resource.customFieldsText[i].empty())
                element(MPP12RscWriter::getTextFieldTypeForIndex(i + 1), unicodeText(resource.customFieldsText[i]));
        for (std::size_t i = 0; i < resource.baselines.size(); ++i) {
            const MPPResourceBaseline& baseline = *resource.baselines[i];
            element(MPP12RscWriter::getWorkBaselineTypeForIndex(i + 1), real(baseline.work * kWorkScale));
            element(MPP12RscWriter::getCostBaselineTypeForIndex(i + 1), [&](MPPData& data) {
                data.writeDouble(baseline.cost * kMoneyScale);
                data.writeInteger(0);
            });
        }
        textIf(resource.hasCode(), kCodeType, resource.code);
    };

    if (order == Order::OfPayloads) {
        element739();
        name();
        element85();
        inBothOrders();
        emailAddress();
        notes();
    } else {
        name();
        inBothOrders();
        notes();
        emailAddress();
        element85();
        // Resources never have these, and there are no payloads for them.
        textIf(resource.hasWindowsAccount(), kWindowsAccountType, std::nullopt);
        textIf(resource.hasMaterialLabel(), kMaterialLabelType, std::nullopt);
        textIf(resource.hasBookingType(), kBookingTypeType, std::nullopt);
        element739();
    }
}

} // namespace

void MPP12RscWriter::writeVar2Data(StreamOutput& /*stream*/) {
    TypedElementPayloads(var2Data(), kHeaderOwnerID)(kHeaderType, zeroes(kHeaderElementSize));
    for (const auto& resource : project().resources)
        visitElements(*resource, Order::OfPayloads, TypedElementPayloads(var2Data(), resource->ID));
}

void MPP12RscWriter::writeVarMeta(MPP12VarMeta& varMeta, StreamOutput& /*stream*/) {
    varMeta.writeElementMetaWithType(kHeaderType, kHeaderOwnerID);
    for (const auto& resource : project().resources)
        visitElements(*resource, Order::OfIndex, FoundElementRecords(varMeta, resource->ID));
}

// "FixedData" and its index.

void MPP12RscWriter::writeFixedData(StreamOutput& /*stream*/) {
    writeDefaultFixedData();
    for (const auto& resource : project().resources)
        writeRscFixedData(*resource);
}

void MPP12RscWriter::writeDefaultFixedData() {
    RowBuilder<kFixedRowSize> row;
    row.at(0).integer(0);
    row.at(4).integer(0);
    row.at(8).word(2);
    row.at(10).word(2);
    row.at(12).word(3);
    row.at(14).word(0);
    row.at(16).integer(2);
    row.at(20).date(_dates(std::nullopt));
    row.at(24).date(_dates(std::nullopt));
    row.at(28).real(0.0);
    row.at(36).real(0.0);
    row.at(44).real(10000.0);
    row.at(52).zeroes(136);
    row.endElement(fixedData());
}

void MPP12RscWriter::writeRscFixedData(const MPPResource& resource) {
    const MPPResourceBaseline baseline = firstBaselineOf(resource);
    RowBuilder<kFixedRowSize> row;
    row.at(0).lowInteger(resource.ID);
    row.at(4).lowInteger(resource.ID);
    row.at(8).word(resource.getStandartRateFormatType());
    row.at(10).word(resource.getOvertimeRateFormatType());
    row.at(12).word(resource.getAccrueAtType());
    row.at(14).lowWord(resource.getResourceType());
    row.at(16).lowInteger(resource.calendarID.value_or(resource.ID + 3));
    row.at(20).date(_dates(resource.getAvailableFrom()));
    row.at(24).date(_dates(resource.getAvailableTo()));
    row.at(28).real(resource.getStandartRate());
    row.at(36).real(resource.getOverTimeRate());
    row.at(44).real(resource.getMaxUnits());
    row.at(52).real(resource.getWork() * kWorkScale);
    row.at(60).real(resource.getActualWork() * kWorkScale);
    row.at(68).real(baseline.work * kWorkScale);
    row.at(76).real(resource.getOvertimeWork());
    row.at(84).real(resource.getCostPerUse());
    row.at(92).real(resource.getRemainingWork() * kWorkScale);
    row.at(100).real(resource.getRegularWork() * kWorkScale);
    row.at(108).real(resource.getActualOvertimeWork());
    row.at(116).real(0.0);
    row.at(124).real(resource.getPeakUnits());
    row.at(132).real(resource.getActualCost());
    row.at(140).real(resource.getCost());
    row.at(148).real(baseline.cost * kMoneyScale);
    row.at(156).real(resource.getRemainingCost());
    row.at(164).real(resource.getOvertimeCost());
    row.at(172).real(resource.getActualOvertimeCost());
    row.at(180).real(resource.getRemainingOvertimeCost());
    row.endElement(fixedData());
}

namespace {

// The upper half is the number of the row's elements where the file keeps its numbers in step. Otherwise they are not
// counted one by one: the list of texts and the list of baselines each set bits of their own.
std::uint32_t startValueOf(const MPPResource& resource, const MPPVar2Data& var2Data, bool countsElements) {
    if (countsElements)
        return static_cast<std::uint32_t>(var2Data.numberOfElementsForID(resource.ID)) << 16;
    return 0x00040000U | (resource.customFieldsText.empty() ? 0 : 0x00010000U) |
           (resource.baselines.empty() ? 0 : 0x000A0000U);
}

// What every record has: the fields of the row's bytes.
constexpr ResourceRecord kEveryResource = [] {
    ResourceRecord record;
    record.bits(ResourceRow::UniqueID, ResourceRow::ID);
    record.bits(ResourceRow::FirstField, ResourceRow::LastField);
    return record;
}();

void writeDefaultFixedMeta(MPPFixedMeta& fixedMeta) {
    ResourceRecord record = kEveryResource;
    record.bit(ResourceRow::OfTypeWork);
    record.bits(ResourceRow::Flag12, ResourceRow::Flag13);
    record.end(fixedMeta, 0x00010000);
}

void writeRscFixedMeta(MPPFixedMeta& fixedMeta, const MPPResource& resource, std::uint32_t start, bool isFirst,
                       bool marksElementsOnly) {
    const bool isWork = resource.getResourceType() == 0;
    ResourceRecord record = kEveryResource;
    record.bit(ResourceRow::OfTypeWork, isWork);
    record.bit(ResourceRow::HasNotes, resource.hasNotes());
    record.bit(ResourceRow::Flag12, isWork);
    record.bit(ResourceRow::Flag13, !isWork);
    record.bit(ResourceRow::Flag15, !marksElementsOnly && (!isWork || !isFirst));
    record.bits(ResourceRow::Name, ResourceRow::Initials);
    record.bit(ResourceRow::Group, resource.hasGroup());
    record.bit(ResourceRow::Code, resource.hasCode());
    // An exact export marks the address where there is a code.
    record.bit(ResourceRow::EmailAddress, marksElementsOnly ? resource.hasEmailAddress() : resource.hasCode());
    for (std::size_t position = 1; position <= kTextFieldTypes.size(); ++position)
        record.bit(ResourceRow::text(position), resource.hasCustomFieldText(position));
    record.bit(ResourceRow::Notes, resource.hasNotes());
    record.end(fixedMeta, start);
}

} // namespace

void MPP12RscWriter::writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& /*stream*/) {
    writeDefaultFixedMeta(fixedMeta);
    bool isFirst = true;
    for (const auto& resource : project().resources) {
        const std::uint32_t start = startValueOf(*resource, var2Data(), project().bookkeeping != nullptr);
        writeRscFixedMeta(fixedMeta, *resource, start, isFirst, marksElementsOnly());
        isFirst = false;
    }
}

// "Fixed2Data" and its index.

void MPP12RscWriter::writeFixed2Data(StreamOutput& /*stream*/) {
    std::int32_t place = 0;
    writeRscFixed2Data(*project().defaultResource(), place);
    for (const auto& resource : project().resources)
        writeRscFixed2Data(*resource, ++place);
}

void MPP12RscWriter::writeRscFixed2Data(const MPPResource& resource, std::int32_t place) {
    RowBuilder<kFixed2RowSize> row;
    row.at(0).guid(resource.GUID());
    row.at(16).integer(0); // the lower half of the double whose upper half follows
    row.at(20).integer(calculateResourcePositionInResourceSheet(place));
    row.at(24).guid(resource.GUID());
    row.endElement(fixed2Data());
}

namespace {

// What every record has.
constexpr SecondResourceRecord kEverySecond = [] {
    SecondResourceRecord record;
    record.bits(ResourceRow::SecondBlock, ResourceRow::SheetPosition);
    record.bit(ResourceRow::SecondGuid);
    record.bit(ResourceRow::Element739);
    return record;
}();

// An exact export marks all ten baselines when there is one.
void writeRscFixed2Meta(MPPFixedMeta& fixed2Meta, const MPPResource& resource, bool marksElementsOnly) {
    SecondResourceRecord record = kEverySecond;
    record.bit(ResourceRow::Flag227, resource.getResourceType() == 0);
    record.bit(ResourceRow::OfTypeCost, resource.isCostResource());
    record.bit(ResourceRow::Budget, resource.getBudget());
    for (std::size_t i = 0; i < kWorkBaselineTypes.size(); ++i) {
        const std::size_t work = ResourceRow::Baseline1 + ResourceRow::RowsOfBaseline * i;
        const bool isMarked = marksElementsOnly ? i < resource.baselines.size() : !resource.baselines.empty();
        record.bit(work, isMarked);
        record.bit(work + 1, isMarked);
    }
    record.end(fixed2Meta, 0);
}

} // namespace

void MPP12RscWriter::writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& /*stream*/) {
    kEverySecond.end(fixed2Meta, 0); // the default row's
    for (const auto& resource : project().resources)
        writeRscFixed2Meta(fixed2Meta, *resource, marksElementsOnly());
}

// "Props": the template's, unless the project names text fields.

void MPP12RscWriter::writeProps() {
    if (project().customResourceFieldNames.empty()) {
        copyChildFromTemplate("Props");
        return;
    }
    MPPProps props;
    StreamOutput stream(writer(), "Props", props);
    props.open();
    writeFieldAliasesElement(props, {project().customResourceFieldNames, project().customFieldNameRoom},
                             kDescriptionEnding, getTextFieldTypeForIndex);
    props.close();
    stream.finish();
}

void MPP12RscWriter::preprocessProject(MPPProject& project) {
    const auto inDefaultPlace = std::find_if(project.resources.begin(), project.resources.end(),
                                             [](const auto& resource) { return resource->ID == 0; });
    if (inDefaultPlace != project.resources.end()) {
        project.keepRemovedRecord(*inDefaultPlace);
        project.resources.erase(inDefaultPlace);
    }
    std::uint64_t nextID = 1;
    for (const auto& resource : project.resources) {
        resource->ID = nextID++;
        moveFirstBaselineOut(*resource);
    }
}

} // namespace brackwater
