#include "MPPXMLDOMFilter/Corrections/WorkingTimeline.h"

#include "MPPXMLDOMFilter/Model/MPPCalendar.h"
#include "Platform/Time/GregorianCalendar.h"
#include "support/ScopedTimeZone.h"

#include <gtest/gtest.h>

#include <limits>

namespace brackwater {
namespace {

constexpr double kHour = 3600.0;

// March 2027 begins on a Monday.
Date march(std::int64_t day, std::int64_t hour, std::int64_t minute = 0) {
    return GregorianCalendar().dateFromFields({2027, 3, day, hour, minute, 0}).value();
}

MPPCalendarTime time(int minutes) {
    MPPCalendarTime time;
    time.setHours(static_cast<std::uint8_t>(minutes / 60 % 24));
    time.setMinutes(static_cast<std::uint8_t>(minutes % 60));
    return time;
}

MPPRangeList ranges(std::initializer_list<std::pair<int, int>> hours) {
    MPPRangeList list;
    for (const auto& [begin, end] : hours)
        list.push_back(std::make_shared<MPPCalendarTimeRange>(MPPCalendarTimeRange{time(begin * 60), time(end * 60)}));
    return list;
}

std::shared_ptr<MPPCalendarWorkWeek> weekOf(const MPPRangeList& monToFri, const MPPRangeList& weekend) {
    auto week = std::make_shared<MPPCalendarWorkWeek>();
    for (MPPDayRanges* day : {&week->mondayWorkRanges, &week->tuesdayWorkRanges, &week->wednesdayWorkRanges,
                              &week->thursdayWorkRanges, &week->fridayWorkRanges})
        *day = std::make_shared<MPPRangeList>(monToFri);
    week->saturdayWorkRanges = std::make_shared<MPPRangeList>(weekend);
    week->sundayWorkRanges = std::make_shared<MPPRangeList>(weekend);
    return week;
}

void addException(MPPCalendar& calendar, Date first, Date last, const MPPRangeList& hours = {}) {
    calendar.exceptions.push_back(
        std::make_shared<MPPCalendarException>(MPPCalendarException{first, last, hours, std::nullopt}));
}

class WorkingTimelineTest : public testing::Test {
protected:
    // The standard week; Wednesday the 10th is free. The painter works on Saturday mornings and on the morning of the
    // free Wednesday, and has the 15th off.
    WorkingTimelineTest() {
        standard->defaultWorkWeek = weekOf(ranges({{8, 12}, {13, 17}}), {});
        addException(*standard, march(10, 0), march(10, 0));
        painter.baseCalendar.setRecord(standard);
        painter.defaultWorkWeek = std::make_shared<MPPCalendarWorkWeek>();
        painter.defaultWorkWeek->saturdayWorkRanges = std::make_shared<MPPRangeList>(ranges({{8, 12}}));
        addException(painter, march(10, 12), march(10, 12), ranges({{8, 12}}));
        addException(painter, march(15, 0), march(15, 23));
    }

    std::shared_ptr<MPPCalendar> standard = std::make_shared<MPPCalendar>();
    MPPCalendar painter;
};

TEST_F(WorkingTimelineTest, AdvancesThroughBreaksExceptionsAndWeeks) {
    struct Row {
        const char* what;
        const MPPCalendar& calendar;
        Date start;
        double hours;
        Date end;
    };
    const Row rows[] = {
        {"within a range", *standard, march(1, 8), 2.5, march(1, 10, 30)},
        {"to a range's end, not the next begin", *standard, march(1, 8), 4, march(1, 12)},
        {"over the pause", *standard, march(1, 11), 2, march(1, 14)},
        {"from a pause", *standard, march(1, 12, 30), 1, march(1, 14)},
        {"over a weekend", *standard, march(5, 16), 2, march(8, 9)},
        {"over the free day", *standard, march(9, 13), 5, march(11, 9)},
        {"weeks", *standard, march(1, 8), 80, march(15, 17)},
        {"nothing", *standard, march(6, 9), 0, march(6, 9)},
        {"own Saturday", painter, march(5, 16), 2, march(6, 9)},
        {"own hours before the base's exception", painter, march(9, 16), 2, march(10, 9)},
        {"own time off", painter, march(13, 11), 2, march(16, 9)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const WorkingTimeline line(row.calendar);
        EXPECT_EQ(line.advance(row.start, row.hours * kHour), row.end);
        EXPECT_EQ(line.workingSecondsBetween(row.start, row.end), row.hours * kHour);
        EXPECT_EQ(line.workingSecondsBetween(row.end, row.start), 0.0);
    }
}

TEST_F(WorkingTimelineTest, WorkResumesAtTheNextRange) {
    const WorkingTimeline line(*standard);
    for (const auto& [from, next] : {std::pair(march(1, 9), march(1, 9)), std::pair(march(1, 12), march(1, 13)),
                                     std::pair(march(1, 8), march(1, 8)), std::pair(march(5, 17), march(8, 8)),
                                     std::pair(march(9, 20), march(11, 8))})
        EXPECT_EQ(line.nextWorkingMoment(from), next);
}

TEST_F(WorkingTimelineTest, DatedWeeksOverrideTheUsualOneButNotExceptions) {
    auto shift = weekOf(ranges({{0, 24}}), {});
    shift->tuesdayWorkRanges = nullptr;
    shift->startDate = march(8, 0);
    shift->endDate = march(12, 0);
    standard->workWeeks.push_back(shift);
    const WorkingTimeline line(*standard);
    EXPECT_EQ(line.workingSecondsBetween(march(8, 0), march(15, 0)), (24 + 8 + 0 + 24 + 24) * kHour);
}

TEST_F(WorkingTimelineTest, KeepsLocalTimeAcrossAClockChange) {
    const test::ScopedTimeZone zone("Europe/Berlin"); // 2027-03-28, 2:00 to 3:00
    const WorkingTimeline line(*standard);
    EXPECT_EQ(line.advance(march(26, 16), 2 * kHour), march(29, 9));
    EXPECT_EQ(line.nextWorkingMoment(march(28, 1)), march(29, 8));
}

TEST_F(WorkingTimelineTest, TerminatesForCalendarsWithoutWorkingTime) {
    MPPCalendar idle;
    idle.defaultWorkWeek = weekOf({}, {});
    EXPECT_EQ(WorkingTimeline(idle).advance(march(1, 8), 1), std::nullopt);
    EXPECT_EQ(WorkingTimeline(idle).nextWorkingMoment(march(1, 8)), std::nullopt);
    addException(idle, march(9, 0), march(9, 0), ranges({{9, 8}, {8, 10}, {9, 11}})); // one crosses midnight
    EXPECT_EQ(WorkingTimeline(idle).advance(march(1, 8), 3 * kHour), march(9, 11));
    EXPECT_EQ(WorkingTimeline(idle).advance(march(1, 8), 4 * kHour), std::nullopt);

    const WorkingTimeline line(*standard);
    for (const double endless : {1e300, std::numeric_limits<double>::infinity()})
        EXPECT_EQ(line.advance(march(1, 8), endless), std::nullopt);
    EXPECT_EQ(line.advance(march(1, 8), std::numeric_limits<double>::quiet_NaN()), march(1, 8));
    EXPECT_EQ(line.advance(Date{1e300}, kHour), std::nullopt);

    const auto ring = std::make_shared<MPPCalendar>();
    ring->baseCalendar.setRecord(ring);
    WorkingTimelines timelines;
    EXPECT_EQ(timelines.ofCalendar(*ring).nextWorkingMoment(march(6, 9)), march(8, 8)); // the usual week
    ring->baseCalendar.clear();
}

TEST_F(WorkingTimelineTest, EmptyCalendarsShareTheLineOfTheirBase) {
    MPPCalendar silent;
    silent.baseCalendar.setRecord(standard);
    WorkingTimelines timelines;
    EXPECT_EQ(&timelines.ofCalendar(silent), &timelines.ofCalendar(*standard));
    EXPECT_NE(&timelines.ofCalendar(painter), &timelines.ofCalendar(*standard));
}

} // namespace
} // namespace brackwater
