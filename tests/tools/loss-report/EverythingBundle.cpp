#include "EverythingBundle.h"

#include "support/ScenarioBuilder.h"

namespace brackwater::test {

namespace {

constexpr std::string_view kContents =
    "<document><project><title>Größe &amp; Maß</title><currency-format>€ 1,234.50</currency-format>"
    "<scenario id='s1' filename='plan.xml' name='Plan'/><scenario id='s2' filename='base.xml' name='Base'/>"
    "<scenario id='s3' filename='other.xml' name='Other'/></project>"
    "<window><editing-scenario>s1</editing-scenario><comparison-scenario>s2</comparison-scenario></window></document>";

constexpr std::string_view kWeek =
    "<schedule-day day-of-week='monday'><time-span start-time='25200' end-time='43200'/>"
    "<time-span start-time='46800' end-time='57600'/></schedule-day><schedule-day day-of-week='saturday'/>";
constexpr std::string_view kHolidays =
    "<calendar name='Holidays'><event start='2027-03-29T00:00:00Z' end='2027-03-30T00:00:00Z'/>"
    "<event start='2027-03-04T10:00:00Z' end='2027-03-08T15:00:00Z'/></calendar>";
constexpr std::string_view kOvertime =
    "<calendar name='Push' overtime='yes'><event start='2027-03-10T18:00:00Z' end='2027-03-12T20:00:00Z'/>"
    "<event start='2027-03-11T19:00:00Z' end='2027-03-13T21:00:00Z'/></calendar>"
    "<calendar name='Doctor'><event start='2027-03-02T10:00:00Z' end='2027-03-02T12:00:00Z'/></calendar>";
constexpr std::string_view kFlattened =
    "<flattened-schedule-day day-of-week='friday'><time-span start-time='28800' end-time='43200'/>"
    "</flattened-schedule-day><flattened-schedule-day date='2027-03-20T12:00:00Z'>"
    "<time-span start-time='32400' end-time='46800'/></flattened-schedule-day>"
    "<flattened-schedule-day date='2027-03-22T12:00:00Z'/>";

std::string schedule(std::string_view days) { return "<schedule>" + std::string(days) + "</schedule>"; }

std::string name(std::string_view text) { return "<name>" + std::string(text) + "</name>"; }

std::string title(std::string_view text) { return "<title>" + std::string(text) + "</title>"; }

constexpr std::string_view kNote = "<note><text><p><run><lit>Ein </lit></run><run><lit>Maß für {alle}</lit></run></p>"
                                   "<p/><p><run><lit>C:\\pläne, 🏠 und дом</lit></run></p></text></note>";
constexpr std::string_view kFields = "<user-data><key>Trade</key><string>Masonry</string><key>Größe</key>"
                                     "<string>12 m²</string></user-data>";
constexpr std::string_view kOtherFields = "<user-data><key>Größe</key><string>9</string></user-data>";

void addResources(ScenarioBuilder& scenario) {
    const std::string texts = std::string(kNote).append(kFields);
    scenario.resource("r-1", "type=Group child=r1,r4,r6", schedule(std::string(kWeek).append(kHolidays)))
        .resource("r1", "type=Group child=r2,r3 units-available=9 cost-per-hour=10 cost-per-use=1 email-address=g@x",
                  name("Office").append(texts))
        .resource("r2",
                  "type=Staff email-address=ann@site.example units-available=0.5 cost-per-hour=80.5 cost-per-use=12.25",
                  name("Ann Müller").append(texts).append(schedule(kOvertime)))
        .resource("r3", "type=Equipment efficiency=0.8 cost-per-hour=20", name("Plotter").append(schedule(kFlattened)))
        .resource("r4", "type=Group child=r5")
        .resource("r5", "type=Material cost-per-hour=0.75", name("Paper").append(kOtherFields))
        .resource("r6", "type=Robot", name("Robbie"))
        .resource("r7", "type=Staff", name("Nobody's"));
}

void addTasks(ScenarioBuilder& scenario) {
    const std::string texts = std::string(kNote).append(kFields);
    constexpr std::string_view friday = "start-date=2027-03-05T08:00:00Z end-date=2027-03-05T17:00:00Z ";
    const auto at = [friday](std::string_view items) { return std::string(friday).append(items); };
    scenario
        .task("t-1",
              "type=group start-date=2027-03-01T08:00:00Z end-date=2027-03-12T17:00:00Z duration=288000 static-cost=5 "
              "child=t1,t13 assign=r2",
              title("Everything").append(texts))
        .task("t1",
              "type=group start-date=2027-03-01T08:00:00Z end-date=2027-03-12T17:00:00Z duration=288000 "
              "child=t2,t3,t4,t5,t8,t9,t10,t11,t12,t15,t16,t17,t99",
              title("Group").append(texts))
        .task("t2",
              "start-date=2027-03-01T08:00:00Z end-date=2027-03-03T17:00:00Z duration=86400 effort=86430 "
              "effort-done=30000 static-cost=100.25 priority=5 recalculate=effort splittable=no assign=r2:0.5 "
              "assign=r2:0.5 assign=r5:2.5",
              title("Line\nbreak").append(texts))
        .task("t3",
              "type=milestone start-date=2027-03-03T17:00:00Z end-date=2027-03-03T17:00:00Z duration=0 "
              "completion-percentage=1 priority=-5 after=t2:FS:3600 after=t-1",
              "<prerequisite-task kind='FS'/>")
        .task("t4", at("type=hammock completion-percentage=0.333 locked-start-date=2027-03-05T08:00:00Z "
                       "locked-end-date=2027-03-05T17:00:00Z after=t3:SS:50% after=t2:FF:5 recalculate=units"))
        .task("t5",
              "start-date=2027-03-01T08:00:00Z end-date=2027-03-03T12:00:00Z duration=57600 effort=57600 assign=r3",
              "<split/><child-task idref='t6'/><child-task idref='t7'/>")
        .task("t6", "start-date=2027-03-01T08:00:00Z end-date=2027-03-01T12:00:00Z duration=14400 effort=28800",
              title("First coat"))
        .task("t7", "start-date=2027-03-03T08:00:00Z end-date=2027-03-03T12:00:00Z duration=14400 effort=28800", kNote)
        .task("t8", at("leveled-start=2027-03-05T08:00:00Z effort=28800 assign=r2 assign=r3 after=t5:SF:-7200"))
        .task("t9", at("start-constraint-date=2027-03-05T08:00:00Z schedule-type=asap"),
              "<prerequisite-task idref='t2' external='x' kind='FS'><is-resource-dependency>yes"
              "</is-resource-dependency></prerequisite-task>")
        .task("t10", at("end-constraint-date=2027-03-05T17:00:00Z recalculate=something_else"))
        .task("t11", at("start-no-earlier-than=2027-03-01T08:00:00Z end-no-later-than=2027-03-09T17:00:00Z"))
        .task("t12", at("locked-end-date=2027-03-05T17:00:00Z schedule-type=alap recalculate=duration"))
        .task("t13", at("effort=28800 effort-done=28800"), kOtherFields)
        .task("t14", at("effort=1"), title("Left out"))
        .task("t15", at("end-no-earlier-than=2027-03-05T17:00:00Z"))
        .task("t16", at("start-no-later-than=2027-03-05T08:00:00Z"))
        .task("t17", "start-date=2190-03-01T08:00:00Z end-date=2190-03-01T17:00:00Z duration=7203");
}

ScenarioBuilder everything() {
    ScenarioBuilder scenario;
    scenario.rootAttribute("fixed-end='no'").item("start-date=2027-03-01T08:00:00Z end-date=2027-03-12T17:00:00Z");
    addResources(scenario);
    addTasks(scenario);
    return scenario;
}

ScenarioBuilder baseline() {
    ScenarioBuilder scenario;
    addResources(scenario);
    scenario.task("t1", "type=group start-date=2027-03-01T08:00:00Z end-date=2027-03-05T17:00:00Z duration=144000")
        .task("t2", "start-date=2027-03-01T08:00:00Z end-date=2027-03-02T17:00:00Z duration=57600 effort=57600 "
                    "static-cost=80.5 assign=r2:0.5 assign=r5:2")
        .task("t4", "static-cost=3")
        .task("t20", "", title("Dropped since"));
    return scenario;
}

} // namespace

std::string writeEverything(const TempFolder& folder) {
    folder.write("Everything.zelb/__TOC.xml", kContents);
    folder.write("Everything.zelb/plan.xml", everything().text());
    folder.write("Everything.zelb/base.xml", baseline().text());
    return folder.path("Everything.zelb");
}

} // namespace brackwater::test
