#include "BytesOf.h"

#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "Platform/Values/Exception.h"
#include "support/ExpectException.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace brackwater::test {
namespace {

template <typename Write>
Bytes written(Write write) {
    MPPData data;
    write(data);
    return bytesOf(data);
}

Bytes text(std::string_view utf8, MPPEncoding encoding) {
    return written([&](MPPData& data) { data.writeString(utf8, encoding); });
}

TEST(Primitives, IntegersAndDoublesAreLittleEndian) {
    EXPECT_EQ(written([](MPPData& data) {
                  data.writeInteger(0x12345678);
                  data.write2ByteInteger(0xABCD);
                  data.write1ByteInteger(0xEF);
              }),
              (Bytes{0x78, 0x56, 0x34, 0x12, 0xCD, 0xAB, 0xEF}));
    // 1.5 has sign 0, exponent 0x3FF and a fraction of one half.
    EXPECT_EQ(written([](MPPData& data) { data.writeDouble(1.5); }), (Bytes{0, 0, 0, 0, 0, 0, 0xF8, 0x3F}));
}

TEST(Strings, EndInTwoZeroBytesInBothEncodings) {
    EXPECT_EQ(text("", MPPEncoding::ASCII), (Bytes{0, 0}));
    EXPECT_EQ(text("", MPPEncoding::Unicode), (Bytes{0, 0}));
    EXPECT_EQ(text("Ab", MPPEncoding::ASCII), (Bytes{'A', 'b', 0, 0}));
    EXPECT_EQ(text("Ab", MPPEncoding::Unicode), (Bytes{'A', 0, 'b', 0, 0, 0}));
}

TEST(Strings, UnicodeIsUtf16WithSurrogatesAndNoMark) {
    // a, e with acute, Cyrillic Zhe, an emoji beyond the basic plane
    EXPECT_EQ(text("a\u00E9\u0416\U0001F3E0", MPPEncoding::Unicode),
              (Bytes{'a', 0, 0xE9, 0, 0x16, 0x04, 0x3C, 0xD8, 0xE0, 0xDF, 0, 0}));
}

TEST(Strings, OneCharacterThatCannotBeConvertedDropsTheWholeText) {
    EXPECT_EQ(text("caf\u00E9 and more", MPPEncoding::ASCII), (Bytes{0, 0}));
    const std::string illFormed[] = {
        "a\xC3",             // cut short
        "a\x80z",            // a continuation byte alone
        "\xC0\xAF",          // an overlong form
        "\xED\xA0\x80",      // half of a surrogate pair
        "\xF4\x90\x80\x80",  // beyond the last character
        "long enough \xFF.", // no byte of UTF-8
    };
    for (const auto& utf8 : illFormed)
        EXPECT_EQ(text(utf8, MPPEncoding::Unicode), (Bytes{0, 0})) << utf8;
}

constexpr std::string_view kRtfStart =
    "{\\rtf1\\ansi\\ansicpg1251\\deff0\\deflang1049{\\fonttbl{\\f0\\fswiss\\fprq2\\fcharset0 Arial;}"
    "{\\f1\\fswiss\\fprq2\\fcharset204{\\*\\fname Arial;}Arial CYR;}}\r\n"
    "{\\*\\generator Riched2012.0.6413.1000;}\\viewkind4\\uc1\r\n"
    "\\pard\\f0\\fs16\\lang1033 ";
constexpr std::string_view kRtfEnd("\\f1\\lang1049\\par\r\n}\r\n\0", 22);

TEST(Rtf, FramesTheTextUnescapedAndEndsInOneZeroByte) {
    const std::string body = "Mind the {gap} \\ now";
    EXPECT_EQ(written([&](MPPData& data) { data.writeRtfString(body, MPPEncoding::ASCII); }),
              bytesOfText(std::string(kRtfStart) + body + std::string(kRtfEnd)));
}

TEST(Rtf, TextThatCannotBeConvertedLeavesTheFrame) {
    EXPECT_EQ(written([](MPPData& data) { data.writeRtfString("\u0416", MPPEncoding::ASCII); }),
              bytesOfText(std::string(kRtfStart) + std::string(kRtfEnd)));
}

TEST(Rtf, CarriageReturnsStayOneByteInUnicode) {
    const Bytes rtf = written([](MPPData& data) { data.writeRtfString("x", MPPEncoding::Unicode); });
    // Every character of the frame but the four carriage returns and the closing zero takes two bytes.
    const std::size_t characters = kRtfStart.size() + 1 + kRtfEnd.size();
    EXPECT_EQ(rtf.size(), 2 * characters - 5);
    EXPECT_EQ(Bytes(rtf.end() - 6, rtf.end()), (Bytes{'}', 0, '\r', '\n', 0, 0}));
}

Bytes duration(double seconds) {
    return written([&](MPPData& data) { data.writeDuration(seconds, 7); });
}

TEST(Durations, SecondsAreCutToTenthsOfAMinute) {
    EXPECT_EQ(duration(28800.0), (Bytes{0xC0, 0x12, 0, 0})); // 8 hours: 4800
    EXPECT_EQ(duration(11.99), (Bytes{1, 0, 0, 0}));
    EXPECT_EQ(duration(-11.99), (Bytes{0xFF, 0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(duration(-5.0), (Bytes{0, 0, 0, 0}));
}

TEST(Durations, BeyondTheRangeTakeItsLimit) {
    EXPECT_EQ(duration(1e300), (Bytes{0xFF, 0xFF, 0xFF, 0x7F}));
    EXPECT_EQ(duration(-std::numeric_limits<double>::infinity()), (Bytes{0, 0, 0, 0x80}));
    EXPECT_EQ(duration(std::nan("")), (Bytes{0, 0, 0, 0}));
}

TEST(Patches, ReplaceBytesWithoutGrowth) {
    EXPECT_EQ(written([](MPPData& data) {
                  data.writeZeroesBlockOfSize(7);
                  data.writeIntegerAtOffset(0x04030201, 1);
                  data.write2ByteIntegerAtOffset(0x0605, 5);
              }),
              (Bytes{0, 1, 2, 3, 4, 5, 6}));
}

TEST(Patches, PastTheEndAreRefused) {
    MPPData data;
    data.writeZeroesBlockOfSize(4);
    constexpr std::string_view kReason = "Attempt to write to data at wrong offset";
    expectException(kRangeException, kReason, [&] { data.writeIntegerAtOffset(1, 1); });
    expectException(kRangeException, kReason, [&] { data.write2ByteIntegerAtOffset(1, 3); });
    expectException(kRangeException, kReason,
                    [&] { data.writeIntegerAtOffset(1, std::numeric_limits<std::size_t>::max() - 1); });
    EXPECT_EQ(bytesOf(data), Bytes(4, 0));
}

} // namespace
} // namespace brackwater::test
