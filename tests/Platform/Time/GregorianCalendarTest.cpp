#include "Platform/Time/GregorianCalendar.h"

#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>
#include <unicode/basictz.h>
#include <unicode/gregocal.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace brackwater {

void PrintTo(const CivilTime& time, std::ostream* out) {
    *out << time.year << '-' << time.month << '-' << time.day << 'T' << time.hour << ':' << time.minute << ':'
         << time.second;
}

namespace {

constexpr std::array<const char*, 10> kZones = {
    "UTC",           "Europe/Berlin",       "America/St_Johns",  "Asia/Kolkata",
    "Pacific/Apia",  "Australia/Lord_Howe", "Pacific/Kwajalein", "America/New_York",
    "Europe/Dublin", "Africa/Casablanca"};

/// The same operations with ICU.
class IcuCalendar {
public:
    explicit IcuCalendar(const std::string& zone) {
        UErrorCode status = U_ZERO_ERROR;
        _calendar = std::make_unique<icu::GregorianCalendar>(
            icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(zone)), icu::Locale::getRoot(), status);
        EXPECT_TRUE(U_SUCCESS(status));
        _calendar->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
        _calendar->setSkippedWallTimeOption(UCAL_WALLTIME_LAST);
    }

    Date dateFromFields(const CivilTime& time) {
        UErrorCode status = U_ZERO_ERROR;
        _calendar->clear();
        _calendar->set(UCAL_EXTENDED_YEAR, static_cast<int32_t>(time.year));
        _calendar->set(UCAL_MONTH, static_cast<int32_t>(time.month - 1));
        _calendar->set(UCAL_DATE, static_cast<int32_t>(time.day));
        _calendar->set(UCAL_HOUR_OF_DAY, static_cast<int32_t>(time.hour));
        _calendar->set(UCAL_MINUTE, static_cast<int32_t>(time.minute));
        _calendar->set(UCAL_SECOND, static_cast<int32_t>(time.second));
        const double milliseconds = _calendar->getTime(status);
        EXPECT_TRUE(U_SUCCESS(status));
        return {milliseconds / 1000.0};
    }

    CivilTime fieldsOfDate(Date date) {
        UErrorCode status = U_ZERO_ERROR;
        _calendar->setTime(date.secondsSince1970 * 1000.0, status);
        return {get(UCAL_EXTENDED_YEAR), get(UCAL_MONTH) + 1, get(UCAL_DATE),
                get(UCAL_HOUR_OF_DAY),   get(UCAL_MINUTE),    get(UCAL_SECOND)};
    }

    int weekday() { return get(UCAL_DAY_OF_WEEK); }

    /// The instants at which the zone's offset changes within these years.
    std::vector<double> transitions(int firstYear, int lastYear) {
        std::vector<double> instants;
        const auto* zone = dynamic_cast<const icu::BasicTimeZone*>(&_calendar->getTimeZone());
        icu::TimeZoneTransition transition;
        double time = dateFromFields({firstYear}).secondsSince1970 * 1000.0;
        const double end = dateFromFields({lastYear + 1}).secondsSince1970 * 1000.0;
        while (zone->getNextTransition(time, false, transition) && transition.getTime() < end) {
            time = transition.getTime();
            instants.push_back(time / 1000.0);
        }
        return instants;
    }

private:
    int32_t get(UCalendarDateFields field) {
        UErrorCode status = U_ZERO_ERROR;
        return _calendar->get(field, status);
    }

    std::unique_ptr<icu::GregorianCalendar> _calendar;
};

TEST(TimeZone, SystemZoneIsFrozenDuringAHold) {
    const test::ScopedTimeZone before("Europe/Berlin");
    {
        const SystemTimeZoneHold hold;
        const test::ScopedTimeZone changed("America/New_York");
        EXPECT_EQ(TimeZone::system().name(), "Europe/Berlin");
        const SystemTimeZoneHold inner;
        EXPECT_EQ(TimeZone::system().name(), "Europe/Berlin");
    }
    const test::ScopedTimeZone after("America/New_York");
    EXPECT_EQ(TimeZone::system().name(), "America/New_York");
}

class CalendarInZone : public testing::TestWithParam<const char*> {
protected:
    void expectSameFields(Date date) {
        const CivilTime expected = icu.fieldsOfDate(date);
        EXPECT_EQ(calendar.fieldsOfDate(date), expected) << std::fixed << date.secondsSince1970;
        EXPECT_EQ(calendar.weekdayOfDate(date), icu.weekday()) << std::fixed << date.secondsSince1970;
    }
    void expectSameDate(const CivilTime& time) {
        EXPECT_EQ(calendar.dateFromFields(time), icu.dateFromFields(time)) << testing::PrintToString(time);
    }

    IcuCalendar icu{GetParam()};
    GregorianCalendar calendar{TimeZone::withName(GetParam()).value()};
};

TEST_P(CalendarInZone, AgreesWithIcuAroundEveryClockChange) {
    for (const double change : icu.transitions(1960, 2200)) {
        for (int quarters = -30 * 4; quarters <= 30 * 4; ++quarters) {
            const Date date{change + quarters * 900};
            expectSameFields(date);
            expectSameDate(icu.fieldsOfDate(date));
            // A local time near the clock change, which may not exist.
            expectSameDate(GregorianCalendar::fieldsOfDate(Date{change + quarters * 900}, 0));
        }
        for (const double second : {-1.0, 0.0, 1.0})
            expectSameFields(Date{change + second});
    }
}

TEST_P(CalendarInZone, AgreesWithIcuOnEveryDayFrom1970To2100) {
    const double last = icu.dateFromFields({2101}).secondsSince1970;
    for (double noon = 43200; noon < last && !HasFailure(); noon += 86400) {
        expectSameFields(Date{noon});
        CivilTime day = icu.fieldsOfDate(Date{noon});
        day.hour = day.minute = day.second = 0;
        expectSameDate(day);
        EXPECT_EQ(calendar.startOfDay(Date{noon}), icu.dateFromFields(day));
    }
}

TEST_P(CalendarInZone, AgreesWithIcuOnRandomInstantsAndFields) {
    std::mt19937_64 random(20120601);
    std::uniform_real_distribution<double> anyInstant(-100'000'000'000.0, 400'000'000'000.0);
    const auto between = [&random](int least, int greatest) {
        return std::uniform_int_distribution<int>(least, greatest)(random);
    };
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        expectSameFields(Date{std::floor(anyInstant(random))});
        expectSameDate(
            {between(-3000, 9000), between(1, 12), between(1, 31), between(0, 23), between(0, 59), between(0, 59)});
        expectSameDate({between(1500, 2200), between(-40, 40), between(-400, 400), between(-99, 99), between(-99, 99),
                        between(-99, 99)});
    }
}

INSTANTIATE_TEST_SUITE_P(Zones, CalendarInZone, testing::ValuesIn(kZones), [](const auto& zone) {
    std::string name = zone.param;
    std::erase_if(name, [](char c) { return c == '/' || c == '_'; });
    return name;
});

TEST(GregorianCalendar, SkipsTenDaysOfOctober1582) {
    IcuCalendar icu("UTC");
    const GregorianCalendar calendar(*TimeZone::withName("UTC"));
    for (int month = 9; month <= 11; ++month) {
        for (int day = 1; day <= 31; ++day) {
            const CivilTime time{1582, month, day, 12};
            EXPECT_EQ(calendar.dateFromFields(time), icu.dateFromFields(time)) << testing::PrintToString(time);
        }
    }
    const Date lastJulian = *calendar.dateFromFields({1582, 10, 4, 12});
    EXPECT_EQ(calendar.fieldsOfDate(lastJulian.advancedBy(86400)), (CivilTime{1582, 10, 15, 12}));
    EXPECT_EQ(calendar.dateFromFields({1700, 2, 29}), calendar.dateFromFields({1700, 3, 1})) << "no leap year";
    EXPECT_EQ(calendar.fieldsOfDate(*calendar.dateFromFields({1500, 2, 29})), (CivilTime{1500, 2, 29})) << "Julian";
}

TEST(GregorianCalendar, RoundsFractionsDown) {
    const GregorianCalendar calendar(TimeZone::forSecondsFromGMT(0));
    EXPECT_EQ(calendar.fieldsOfDate(Date{0.999}), (CivilTime{1970, 1, 1, 0, 0, 0}));
    EXPECT_EQ(calendar.fieldsOfDate(Date{-0.001}), (CivilTime{1969, 12, 31, 23, 59, 59}));
}

TEST(GregorianCalendar, RejectsDatesOutOfRange) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    const GregorianCalendar calendar;
    for (const std::int64_t extreme : {most, least}) {
        EXPECT_EQ(calendar.dateFromFields({extreme}), std::nullopt);
        EXPECT_EQ(calendar.dateFromFields({2012, extreme}), std::nullopt);
        EXPECT_EQ(calendar.dateFromFields({2012, 1, extreme}), std::nullopt);
        EXPECT_EQ(calendar.dateFromFields({2012, 1, 1, extreme}), std::nullopt);
        EXPECT_EQ(calendar.dateFromFields({2012, 1, 1, 0, extreme}), std::nullopt);
        EXPECT_EQ(calendar.dateFromFields({2012, 1, 1, 0, 0, extreme}), std::nullopt);
        EXPECT_EQ(GregorianCalendar::dateFromFields({2012}, extreme), std::nullopt);
    }
    EXPECT_EQ(calendar.fieldsOfDate(Date{HUGE_VAL}).year, 5801009);
    EXPECT_EQ(calendar.fieldsOfDate(Date{-HUGE_VAL}).year, calendar.fieldsOfDate(Date{-1e300}).year);
    EXPECT_EQ(GregorianCalendar::fieldsOfDate(Date{std::nan("")}, 0), (CivilTime{1970}));
}

TEST(TimeZone, InterpretsTZLikeTheCLibrary) {
    const Date summer{1338534000};
    const Date winter{1322722800};
    struct Case {
        const char* tz;
        std::int64_t summer;
        std::int64_t winter;
    };
    for (const Case& c : {Case{":Europe/Berlin", 7200, 3600}, Case{"/usr/share/zoneinfo/Europe/Berlin", 7200, 3600},
                          Case{"CET-1CEST,M3.5.0,M10.5.0/3", 7200, 3600}, Case{"EST5EDT", -14400, -18000},
                          Case{"AAA5BBB", -14400, -18000}, Case{"GMT+5", -18000, -18000},
                          Case{"<+0530>-5:30", 19800, 19800}, Case{"AEST-10AEDT,M10.1.0,M4.1.0/3", 36000, 39600},
                          Case{"", 0, 0}, Case{"No/Such_Zone", 0, 0}, Case{"CET-1CEST,M3.5.0,nonsense", 0, 0}}) {
        const test::ScopedTimeZone zone(c.tz);
        EXPECT_EQ(TimeZone::system().secondsFromGMT(summer), c.summer) << c.tz;
        EXPECT_EQ(TimeZone::system().secondsFromGMT(winter), c.winter) << c.tz;
    }
}

TEST(TimeZone, WithAFixedOffsetIsNamedAfterIt) {
    EXPECT_EQ(TimeZone::forSecondsFromGMT(0).name(), "GMT");
    EXPECT_EQ(TimeZone::forSecondsFromGMT(19800).name(), "GMT+0530");
    EXPECT_EQ(TimeZone::forSecondsFromGMT(-12600).name(), "GMT-0330");
    EXPECT_EQ(TimeZone::forSecondsFromGMT(-12600).secondsFromGMT(Date{}), -12600);
    EXPECT_FALSE(TimeZone::withName("No/Such_Zone"));
}

} // namespace
} // namespace brackwater
