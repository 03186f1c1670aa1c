#include "Platform/Time/GregorianCalendar.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"
#include "support/ScopedTimeZone.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <random>
#include <string>

namespace brackwater {
namespace {

// The usual date formats have their own parsers and printers, which must agree with the general ones on the same date
// in a format that only those support.
class UsualDates : public testing::TestWithParam<const char*> {
protected:
    std::int64_t upTo(std::int64_t most) {
        return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(most + 1));
    }

    /// Digits that may not be a date: a month may be 13, a day 0, an hour 99.
    std::string anyDigits() {
        return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", upTo(9999), upTo(99), upTo(99), upTo(99), upTo(99),
                           upTo(99));
    }
    std::string plausibleDigits() {
        return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", 1900 + upTo(250), 1 + upTo(11), 1 + upTo(30),
                           upTo(23), upTo(59), upTo(59));
    }
    std::string digits() { return upTo(3) == 0 ? anyDigits() : plausibleDigits(); }

    std::mt19937_64 random{5};
    test::ScopedTimeZone zone{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Zones, UsualDates,
                         testing::Values("Europe/Berlin", "America/New_York", "Asia/Kathmandu", "Pacific/Apia", "UTC"));

TEST_P(UsualDates, SourceTextsInUTCParseAsWithAFraction) {
    for (int i = 0; i < 20'000; ++i) {
        const std::string text = digits();
        EXPECT_EQ(MSPIUtilities::zelbToMspdiDateTime(text + "Z"), MSPIUtilities::zelbToMspdiDateTime(text + ".0Z"))
            << text;
    }
}

TEST_P(UsualDates, OffsetsParseAsWithFewerDigits) {
    for (int i = 0; i < 20'000; ++i) {
        const std::string text = digits() + (upTo(1) == 0 ? "+" : "-");
        const std::int64_t hours = upTo(9);
        const std::int64_t minutes = upTo(99);
        EXPECT_EQ(MSPIUtilities::zelbToMspdiDateTime(fmt::format("{}{:02}:{:02}", text, hours, minutes)),
                  MSPIUtilities::zelbToMspdiDateTime(fmt::format("{}{}:{:02}", text, hours, minutes)))
            << text << hours << ":" << minutes;
    }
}

TEST_P(UsualDates, LocalTimesParseAsWithAFraction) {
    for (int i = 0; i < 20'000; ++i) {
        const std::string text = digits();
        EXPECT_EQ(MSPIUtilities::mspdiToMppDateTime(text), MSPIUtilities::mspdiToMppDateTime(text + ".0")) << text;
    }
}

TEST_P(UsualDates, InstantsArePrintedLikeTheirComponents) {
    for (int i = 0; i < 20'000; ++i) {
        const Date date{static_cast<double>(upTo(12'000'000'000)) - 6'000'000'000.0 + (upTo(1) == 0 ? 0.5 : 0.0)};
        MSPCDateComponents components(DateComponents::fromCivilTime(GregorianCalendar().fieldsOfDate(date)));
        components.forceSystemTimezoneforDate(date);
        EXPECT_EQ(MSPIUtilities::mppToZelbDateTime(date), MSPIUtilities::stringFromComponents(components, MSPCAllUnits))
            << date.secondsSince1970;
    }
}

} // namespace
} // namespace brackwater
