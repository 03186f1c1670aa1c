#include "MPPXMLDOMFilter/Corrections/DateBounds.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "Platform/Time/TimeZone.h"

#include <algorithm>

namespace brackwater {

namespace {

constexpr double kSecondsPerDay = 86400;
/// Day 0 of the format, 1983-12-31, in local seconds since 1970.
constexpr double kFirstSecond = 441676800;
/// The end of day 65534: the next number means no date.
constexpr double kEndSecond = kFirstSecond + 65535 * kSecondsPerDay;

class Bounds {
public:
    void apply(MPPProject& project) const;

private:
    using OptionalDate = std::optional<Date>;

    [[nodiscard]] double wallSecond(Date date) const {
        return date.secondsSince1970 + static_cast<double>(_systemZone.secondsFromGMT(date));
    }
    [[nodiscard]] bool isEarly(const OptionalDate& date) const { return date && !(wallSecond(*date) >= kFirstSecond); }
    [[nodiscard]] bool isLate(const OptionalDate& date) const { return date && !(wallSecond(*date) < kEndSecond); }

    template <typename... Dates>
    void drop(Dates&... dates) const {
        const auto dropOne = [this](OptionalDate& date) {
            if (isEarly(date) || isLate(date))
                date.reset();
        };
        (dropOne(dates), ...);
    }
    void apply(MPPTask& task) const;
    void apply(MPPResource& resource) const;
    void apply(MPPAssignment& assignment) const;
    void apply(MPPCalendar& calendar) const;
    template <typename Span>
    void cut(std::vector<std::shared_ptr<Span>>& spans) const;

    TimeZone _systemZone = TimeZone::system();
};

void Bounds::apply(MPPTask& task) const {
    drop(task.createDate, task.startDate, task.endDate, task.actualStart, task.actualFinish, task.stop, task.resume,
         task.constraintDate, task.deadline);
    if (std::any_of(task.progressPoints.begin(), task.progressPoints.end(),
                    [this](const MPPProgressPoint& point) { return isEarly(point.moment) || isLate(point.moment); }))
        task.progressPoints.clear();
    if (task.baseline0)
        drop(task.baseline0->start, task.baseline0->finish);
    for (const auto& baseline : task.baselines)
        drop(baseline->start, baseline->finish);
}

void Bounds::apply(MPPResource& resource) const { drop(resource.availableFromDate, resource.availableToDate); }

void Bounds::apply(MPPAssignment& assignment) const {
    drop(assignment.creationDate, assignment.startDate, assignment.finishDate, assignment.stopDate,
         assignment.resumeDate);
    if (assignment.baseline0)
        drop(assignment.baseline0->start, assignment.baseline0->finish);
    for (const auto& baseline : assignment.baselines)
        drop(baseline->start, baseline->finish);
}

template <typename Span>
void Bounds::cut(std::vector<std::shared_ptr<Span>>& spans) const {
    const auto isOutside = [this](const std::shared_ptr<Span>& span) {
        return isLate(span->startDate) || isEarly(span->endDate);
    };
    spans.erase(std::remove_if(spans.begin(), spans.end(), isOutside), spans.end());
    const auto dateOf = [this](double wallSecond) {
        return Date{wallSecond -
                    static_cast<double>(_systemZone.secondsFromGMTAtWallTime(static_cast<std::int64_t>(wallSecond)))};
    };
    for (const auto& span : spans) {
        if (isEarly(span->startDate))
            span->startDate = dateOf(kFirstSecond);
        if (isLate(span->endDate))
            span->endDate = dateOf(kEndSecond - 1);
    }
}

void Bounds::apply(MPPCalendar& calendar) const {
    cut(calendar.exceptions);
    cut(calendar.workWeeks);
}

void Bounds::apply(MPPProject& project) const {
    apply(static_cast<MPPTask&>(project));
    drop(project.baseline0SaveDate);
    for (auto& date : project.baselineSaveDates)
        drop(date);
    for (const auto& task : project.tasks)
        apply(*task);
    for (const auto& resource : project.resources) {
        apply(*resource);
        if (MPPCalendar* calendar = resource->calendar.record())
            apply(*calendar);
    }
    for (const auto& assignment : project.assignments)
        apply(*assignment);
    apply(*project.standardCalendar);
    for (const auto& calendar : project.baseCalendars)
        apply(*calendar);
}

} // namespace

void dropDatesOutsideFormat(MPPProject& project) { Bounds().apply(project); }

} // namespace brackwater
