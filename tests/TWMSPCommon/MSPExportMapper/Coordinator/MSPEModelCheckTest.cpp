#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEModelCheck.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "support/ExpectException.h"

#include <gtest/gtest.h>

#include <functional>

namespace brackwater::test {

namespace {

struct CheckedModel {
    MPPProject project;
    std::vector<std::shared_ptr<MPPConstraint>> constraints;
    std::vector<std::shared_ptr<MPPCalendar>> calendars;
};

std::shared_ptr<MPPCalendarTimeRange> morning() {
    auto range = std::make_shared<MPPCalendarTimeRange>();
    range->start.emplace();
    range->end.emplace();
    return range;
}

// One record of each kind, all valid.
std::unique_ptr<CheckedModel> soundModel() {
    auto model = std::make_unique<CheckedModel>();
    auto calendar = std::make_shared<MPPCalendar>();
    calendar->ID = 1;
    calendar->isBaseCalendar = true;
    calendar->defaultWorkWeek = std::make_shared<MPPCalendarWorkWeek>();
    calendar->defaultWorkWeek->mondayWorkRanges = std::make_shared<MPPRangeList>(1, morning());
    calendar->exceptions.push_back(std::make_shared<MPPCalendarException>());
    calendar->exceptions[0]->workRanges.push_back(morning());
    model->calendars.push_back(calendar);
    model->project.calendar.setRecord(calendar);
    model->project.tasks.push_back(std::make_shared<MPPTask>());
    model->project.resources.push_back(std::make_shared<MPPResource>());
    model->project.assignments.push_back(std::make_shared<MPPAssignment>());
    model->constraints.push_back(std::make_shared<MPPConstraint>());
    return model;
}

// Expects the check to fail with that message after the valid model is damaged.
void expectFault(std::string_view message, const std::function<void(CheckedModel&)>& damage) {
    const auto model = soundModel();
    damage(*model);
    expectAssertion(message, [&] { verifyFixedProject(model->project, model->constraints, model->calendars); });
}

} // namespace

TEST(ModelCheck, ValidModelPasses) {
    const auto model = soundModel();
    EXPECT_NO_THROW(verifyFixedProject(model->project, model->constraints, model->calendars));
}

TEST(ModelCheck, ReportsMissingRecords) {
    expectFault("Project has no calendar.", [](auto& model) { model.project.calendar.clear(); });
    expectFault("Tasks collection. Unexpected object: (null)", [](auto& model) { model.project.tasks[0] = nullptr; });
    expectFault("Constraints collection. Unexpected object: (null)",
                [](auto& model) { model.constraints[0] = nullptr; });
    expectFault("Resources collection. Unexpected object: (null)",
                [](auto& model) { model.project.resources[0] = nullptr; });
    expectFault("Assignments collection. Unexpected object: (null)",
                [](auto& model) { model.project.assignments[0] = nullptr; });
    expectFault("Calendars collection. Unexpected object: (null)", [](auto& model) { model.calendars[0] = nullptr; });
}

TEST(ModelCheck, ReportsUnresolvedUids) {
    expectFault("Project Calendar. Unexpected object: NSString",
                [](auto& model) { model.project.calendar.setProxyText("1"); });
    expectFault("MPPConstraint ID=0. Unexpected MPPConstraint.task1 class: NSString",
                [](auto& model) { model.constraints[0]->task1.setProxyText("1"); });
    expectFault("MPPConstraint ID=0. Unexpected MPPConstraint.task2 class: NSString",
                [](auto& model) { model.constraints[0]->task2.setProxyText("1"); });
    expectFault("Resource ID=0. Unexpected Resource.calendar class: NSString",
                [](auto& model) { model.project.resources[0]->calendar.setProxyText("1"); });
    expectFault("Assignment ID=0. Unexpected Assignment.task class: NSString",
                [](auto& model) { model.project.assignments[0]->task.setProxyText("1"); });
    expectFault("Assignment ID=0. Unexpected Assignment.resource class: NSString",
                [](auto& model) { model.project.assignments[0]->resource.setProxyText("1"); });
    expectFault("Calendar ID=1. Unexpected Calendar.baseCalendar class: NSString",
                [](auto& model) { model.calendars[0]->baseCalendar.setProxyText("1"); });
}

TEST(ModelCheck, CalendarIsABaseOrHasOne) {
    expectFault("Calendar must be either base calendar itself, or have base calendar.",
                [](auto& model) { model.calendars[0]->isBaseCalendar = false; });
    expectFault("Calendar can not be base calendar itself and have base calendar.",
                [](auto& model) { model.calendars[0]->baseCalendar.setRecord(std::make_shared<MPPCalendar>()); });
    expectFault("Base calendar must have default work week.",
                [](auto& model) { model.calendars[0]->defaultWorkWeek = nullptr; });
}

TEST(ModelCheck, RangesOfEveryDayAreChecked) {
    using Day = MPPDayRanges MPPCalendarWorkWeek::*;
    const std::pair<const char*, Day> days[] = {{"sunday", &MPPCalendarWorkWeek::sundayWorkRanges},
                                                {"monday", &MPPCalendarWorkWeek::mondayWorkRanges},
                                                {"tuesday", &MPPCalendarWorkWeek::tuesdayWorkRanges},
                                                {"wednesday", &MPPCalendarWorkWeek::wednesdayWorkRanges},
                                                {"thursday", &MPPCalendarWorkWeek::thursdayWorkRanges},
                                                {"friday", &MPPCalendarWorkWeek::fridayWorkRanges},
                                                {"saturday", &MPPCalendarWorkWeek::saturdayWorkRanges}};
    for (const auto& [name, day] : days) {
        const std::string start = std::string("Calendars WorkWeek ").append(name);
        const auto setRange = [&, field = day](CheckedModel& model, std::shared_ptr<MPPCalendarTimeRange> range) {
            (*model.calendars[0]->defaultWorkWeek).*field = std::make_shared<MPPRangeList>(1, std::move(range));
        };
        expectFault(start + "WorkRanges collection. Unexpected object: (null)",
                    [&](auto& model) { setRange(model, nullptr); });
        expectFault(start + "WorkRange start. Unexpected object: (null)", [&](auto& model) {
            auto range = morning();
            range->start.reset();
            setRange(model, range);
        });
        expectFault(start + "WorkRange end. Unexpected object: (null)", [&](auto& model) {
            auto range = morning();
            range->end.reset();
            setRange(model, range);
        });
    }
}

TEST(ModelCheck, WorkWeeksAndExceptionsAreChecked) {
    expectFault("Calendar defaultWorkWeek or WorkWeeks collection. Unexpected object: (null)",
                [](auto& model) { model.calendars[0]->workWeeks.push_back(nullptr); });
    expectFault("Calendar Exceptions collection. Unexpected object: (null)",
                [](auto& model) { model.calendars[0]->exceptions[0] = nullptr; });
    expectFault("Calendar Exception WorkRanges collection. Unexpected object: (null)",
                [](auto& model) { model.calendars[0]->exceptions[0]->workRanges[0] = nullptr; });
    expectFault("Calendar Exception WorkRange start. Unexpected object: (null)",
                [](auto& model) { model.calendars[0]->exceptions[0]->workRanges[0]->start.reset(); });
    expectFault("Calendar Exception WorkRange end. Unexpected object: (null)",
                [](auto& model) { model.calendars[0]->exceptions[0]->workRanges[0]->end.reset(); });
}

} // namespace brackwater::test
