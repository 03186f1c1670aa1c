#include "StreamsTest.h"

#include "MPPXMLDOMFilter/Streams/MPP12ProjectPropsWriter.h"

#include <random>

namespace brackwater::test {
namespace {

void append(Bytes& bytes, const ByteImage& more) {
    bytes.insert(bytes.end(), more.bytes().begin(), more.bytes().end());
}

// A template's stream: properties as they come, whatever their words say of them.
class PropsBuilder {
public:
    PropsBuilder& property(std::uint32_t type, std::uint32_t size, std::uint32_t thirdWord, const Bytes& payload) {
        append(_bytes, ByteImage(12).integer(0, size).integer(4, type).integer(8, thirdWord));
        _bytes.insert(_bytes.end(), payload.begin(), payload.end());
        if (payload.size() % 2 != 0)
            _bytes.push_back(0xEE);
        ++_count;
        return *this;
    }
    /// A property whose third word repeats its size.
    PropsBuilder& property(std::uint32_t type, const Bytes& payload) {
        const auto size = static_cast<std::uint32_t>(payload.size());
        return property(type, size, size, payload);
    }
    [[nodiscard]] Bytes stream(std::optional<std::uint32_t> count = std::nullopt) const {
        Bytes stream;
        append(stream, ByteImage(16).integer(8, 0xABCD1234).integer(12, count.value_or(_count)));
        stream.insert(stream.end(), _bytes.begin(), _bytes.end());
        return stream;
    }

private:
    Bytes _bytes;
    std::uint32_t _count = 0;
};

ByteImage frameHeader(std::uint32_t total, std::uint32_t magic, std::uint16_t count) {
    return ByteImage(16).integer(0, total - 4).integer(4, total - 4).integer(8, magic).word(12, count);
}

Bytes wordOf(std::uint16_t value) { return ByteImage(2).word(0, value).bytes(); }
Bytes integerOf(std::uint32_t value) { return ByteImage(4).integer(0, value).bytes(); }

class ProjectProps : public StreamsTest {
protected:
    Bytes written(const Bytes& templateStream) {
        output = std::make_shared<MemoryOutput>();
        auto writer = MPP12ProjectPropsWriter(std::make_shared<MemoryWriter>(output, "Props", true),
                                              memoryStream(templateStream));
        EXPECT_TRUE(writer.writeDataForProject(&project)) << writer.failureReason();
        return stream("Props");
    }
    /// The payload that the project gives to a property.
    Bytes valueOf(std::uint32_t type) {
        const Bytes result = written(PropsBuilder().property(type, {0xAA, 0xAA, 0xAA, 0xAA}).stream());
        EXPECT_EQ(integerAt(result, 20), type);
        EXPECT_EQ(result.size(), 28U + integerAt(result, 16));
        return slice(result, 28, integerAt(result, 16));
    }
};

TEST_F(ProjectProps, UnknownPropertiesKeepTheirBytesAndOddOnesArePadded) {
    const Bytes result = written(PropsBuilder()
                                     .property(0x11, 5, 77, {1, 2, 3, 4, 5})
                                     .property(0x22, {})
                                     .property(0x33, 3, 3, {6, 7, 8})
                                     .stream());
    ByteImage expected(16 + 12 + 6 + 12 + 12 + 4);
    expected.integer(0, 58).integer(4, 58).integer(8, 0xABCD1234).word(12, 3);
    expected.integer(16, 5).integer(20, 0x11).integer(24, 77);
    expected.integer(28, 0x04030201).word(32, 0xFF05);
    expected.integer(38, 0x22);
    expected.integer(46, 3).integer(50, 0x33).integer(54, 3).integer(58, 0xFF080706);
    EXPECT_TRUE(sameBytes(result, expected));
}

TEST_F(ProjectProps, KnownPropertiesTakeTheProjectsValues) {
    project.startDate = dateAt(1, 4800);
    project.endDate = dateAt(2);
    project.title = "T";
    project.summaryInfo->author = "Me";
    project.currencySymbol = "kr";
    project.currencySymbolPosition = 3;
    project.currencyDigits = 0x10003;
    project.currencyCode = "NOK";
    project.durationFormat = 9;
    project.workFormat = 5;
    project.minutesPerDay = 0x100000000 + 450;
    project.minutesPerWeek = 70000;
    project.weekStartDay = 6;
    project.daysPerMonth = 21;
    project.baseline0SaveDate = dateAt(3);
    project.baselineSaveDates = {dateAt(4), std::nullopt, dateAt(5)};
    const auto calendar = std::make_shared<MPPCalendar>();
    calendar->name = "Night";
    project.calendar.setRecord(calendar);

    EXPECT_EQ(valueOf(0x02400002), ByteImage(4).date(0, 4800, 1).bytes());
    EXPECT_EQ(valueOf(0x02400003), ByteImage(4).date(0, 0, 2).bytes());
    EXPECT_EQ(valueOf(0x02400004), wordOf(1));
    EXPECT_EQ(valueOf(0x02400008), text16("T"));
    EXPECT_EQ(valueOf(0x35400008), text16("T"));
    EXPECT_EQ(valueOf(0x0240000C), text16("Me"));
    EXPECT_EQ(valueOf(0x0240000E), text16("Night"));
    EXPECT_EQ(valueOf(0x02400010), text16("kr"));
    EXPECT_EQ(valueOf(0x02400011), wordOf(3));
    EXPECT_EQ(valueOf(0x02400012), wordOf(3));
    EXPECT_EQ(valueOf(0x02400015), wordOf(9));
    EXPECT_EQ(valueOf(0x02400016), wordOf(5));
    EXPECT_EQ(valueOf(0x0240001D), integerOf(450));
    EXPECT_EQ(valueOf(0x0240001E), integerOf(70000));
    EXPECT_EQ(valueOf(0x02400025), wordOf(6));
    EXPECT_EQ(valueOf(0x0240003A), wordOf(0)) << "constraints are honoured";
    EXPECT_EQ(valueOf(0x0240138F), wordOf(21));
    EXPECT_EQ(valueOf(0x02401395), ByteImage(4).date(0, 0, 3).bytes());
    EXPECT_EQ(valueOf(0x02401396), ByteImage(4).date(0, 0, 4).bytes());
    EXPECT_EQ(valueOf(0x02401397), integerOf(0xFFFFFFFF));
    EXPECT_EQ(valueOf(0x02401398), ByteImage(4).date(0, 0, 5).bytes());
    EXPECT_EQ(valueOf(0x02401399), integerOf(0xFFFFFFFF));
    EXPECT_EQ(valueOf(0x0240139F), integerOf(0xFFFFFFFF));
    EXPECT_EQ(valueOf(0x024013BB), text16("NOK"));
    EXPECT_EQ(valueOf(0x024013C2), ByteImage(16).guid(0, calendar->GUID()).bytes());
    EXPECT_EQ(valueOf(0x024013A0), integerOf(0xAAAAAAAA)) << "behind the ten save dates";
    project.scheduleFromStart = false;
    project.honorConstraints = false;
    EXPECT_EQ(valueOf(0x02400004), wordOf(0));
    EXPECT_EQ(valueOf(0x0240003A), wordOf(1));
}

TEST_F(ProjectProps, WhatTheProjectLacksIsWrittenEmpty) {
    project.currencySymbol.reset();
    EXPECT_EQ(valueOf(0x02400008), Bytes(2));
    EXPECT_EQ(valueOf(0x02400010), Bytes(2));
    EXPECT_EQ(valueOf(0x0240000E), Bytes(2));
    EXPECT_EQ(valueOf(0x024013C2), Bytes(16));
    EXPECT_EQ(valueOf(0x0240000C), text16(" ")) << "no author is one blank";
    project.summaryInfo->author = "";
    EXPECT_EQ(valueOf(0x0240000C), Bytes(2)) << "an empty author is one";
}

TEST_F(ProjectProps, AThirdWordThatRepeatsTheSizeGoesOnDoingSo) {
    project.title = "longer";
    const Bytes result =
        written(PropsBuilder().property(0x02400008, {0, 0}).property(0x02400008, 2, 99, {0, 0}).stream());
    EXPECT_EQ(integerAt(result, 16), 14U);
    EXPECT_EQ(integerAt(result, 24), 14U);
    EXPECT_EQ(integerAt(result, 42), 14U);
    EXPECT_EQ(integerAt(result, 50), 99U);
}

TEST_F(ProjectProps, OnePropertyHasItsSizeInItsThirdWord) {
    const Bytes result =
        written(PropsBuilder().property(0x3540000B, 0xFFFFFFFF, 4, {1, 2, 3, 4}).property(0x11, {5, 6}).stream());
    EXPECT_EQ(wordAt(result, 12), 2);
    EXPECT_EQ(integerAt(result, 16), 4U);
    EXPECT_EQ(integerAt(result, 24), 4U);
    EXPECT_EQ(integerAt(result, 28), 0x04030201U);
    EXPECT_EQ(integerAt(result, 36), 0x11U);
}

TEST_F(ProjectProps, WhatDoesNotFitEndsTheList) {
    const ByteImage empty = frameHeader(16, 0xABCD1234, 0);
    EXPECT_TRUE(sameBytes(written({}), frameHeader(16, 0, 0)));
    EXPECT_TRUE(sameBytes(written(Bytes(15, 0xFF)), frameHeader(16, 0, 0)));
    EXPECT_TRUE(sameBytes(written(PropsBuilder().stream(0xFFFFFFFF)), empty));
    EXPECT_TRUE(sameBytes(written(PropsBuilder().property(0x11, 3, 3, {1, 2}).stream()), empty)) << "one byte short";
    EXPECT_TRUE(sameBytes(written(PropsBuilder().property(0x11, 0xFFFFFFFF, 0, {1, 2}).stream()), empty));
    EXPECT_TRUE(sameBytes(written(PropsBuilder().property(0x3540000B, 2, 0xFFFFFFFF, {1, 2}).stream()), empty));
    EXPECT_TRUE(sameBytes(written(PropsBuilder().property(0x11, {1, 2}).stream(0)), empty));

    Bytes headCutOff = PropsBuilder().property(0x11, {1, 2}).property(0x22, {}).stream(7);
    headCutOff.pop_back();
    EXPECT_EQ(wordAt(written(headCutOff), 12), 1);
    Bytes padCutOff = PropsBuilder().property(0x11, {1, 2, 3}).stream(2);
    padCutOff.pop_back();
    EXPECT_EQ(wordAt(written(padCutOff), 12), 1);
    Bytes more = PropsBuilder().property(0x11, {1, 2}).property(0x22, {3, 4}).stream(1);
    EXPECT_EQ(written(more).size(), 30U) << "bytes behind the last property are dropped";
}

TEST_F(ProjectProps, AnyBytesAreReadWithinTheirBounds) {
    std::mt19937 random(20070112); // the same bytes in every run
    const Bytes sound = PropsBuilder()
                            .property(0x02400008, {1, 2, 3})
                            .property(0x3540000B, 9, 4, {1, 2, 3, 4})
                            .property(0x11, {})
                            .stream();
    for (int round = 0; round < 3000; ++round) {
        Bytes hostile = sound;
        for (unsigned changes = 1 + random() % 4; changes > 0; --changes)
            hostile[random() % hostile.size()] = static_cast<std::uint8_t>(random() % 3 == 0 ? 0xFF : random());
        hostile.resize(random() % 2 == 0 ? hostile.size() : random() % hostile.size());
        MPP12SequentialPropsReader reader(hostile);
        std::size_t bytes = 16;
        while (reader.readNextProperty())
            bytes += 12 + reader.curPropertyData().size();
        ASSERT_LE(bytes, std::max<std::size_t>(hostile.size(), 16));
    }
}

TEST_F(ProjectProps, AStorageInThePlaceOfTheStreamIsAFailure) {
    MPP12ProjectPropsWriter writer(std::make_shared<MemoryWriter>(output, "Props", true), memoryTemplate({{"x", {1}}}));
    EXPECT_FALSE(writer.writeDataForProject(&project));
    EXPECT_EQ(writer.failureReason().substr(0, 23), "ReadFromStreamException");
}

} // namespace
} // namespace brackwater::test
