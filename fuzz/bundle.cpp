// Bundles made from bytes through a grammar of the source format: well-formed documents with likely and unlikely
// values.
#include "Choices.h"
#include "MappedScenario.h"

#include <fmt/format.h>

#include <array>

namespace {

using brackwater::fuzz::Choices;

class BundleMaker {
public:
    explicit BundleMaker(Choices& choices) : _choices(choices) {}

    std::string scenario() {
        std::string text = "<scenario xmlns=\"http://tarnwick.example/namespace/Tarnwick/v2\"";
        if (oneIn(4))
            text += " fixed-end=\"" + pick(kBooleans) + "\"";
        text += ">";
        text += "<top-resource idref=\"" + pick(kResourceIds) + "\"/><top-task idref=\"" + pick(kTaskIds) + "\"/>";
        optional(text, "start-date", kDates);
        optional(text, "end-date", kDates);
        for (int i = _choices.between(0, 6); i > 0; --i)
            text += resource();
        for (int i = _choices.between(0, 8); i > 0; --i)
            text += task();
        return text + "</scenario>";
    }

    std::string contents() {
        return "<contents><project><title>Plan</title><currency-format>" + pick(kSamples) +
               "</currency-format></project></contents>";
    }

private:
    static constexpr std::array kTaskIds = {"t-1", "t1", "t2", "t3", "t4", "t12x", "t0", "t99999999999999999999"};
    static constexpr std::array kResourceIds = {"r-1", "r1", "r2", "r3", "r4", "r0", "x1"};
    static constexpr std::array kBooleans = {"true", "no", "1", "maybe", ""};
    static constexpr std::array kDates = {"2027-03-01T08:00:00Z",
                                          "2027-03-28T02:30:00+01:00",
                                          "2027-03-05T17:00:00-03:30",
                                          "2027-03-01",
                                          "2027-03-01 08:00:00",
                                          "99999999999999999999-01-01T00:00:00Z",
                                          "2027-13-45T99:99:99Z",
                                          "1983-12-30T00:00:00Z",
                                          "2031-01-01T00:00:00Z",
                                          "",
                                          "abc"};
    // Not for tasks: a split one has an element a day, and an input would take seconds.
    static constexpr std::array kFarDates = {"1500-01-01T00:00:00Z", "1983-12-31T00:00:00Z", "2163-06-06T00:00:00Z",
                                             "2200-01-01T00:00:00Z", "9999-12-31T24:00:00Z", "0001-01-01T00:00:00Z"};
    static constexpr std::array kNumbers = {"0",  "1",    "3600", "-7200", "0.5", "1e308", "99999999999999999999",
                                            "",   "x",    "1.5",  "28800", "nan", "-1",    "2147483648",
                                            "60", "0.29", "86400"};
    static constexpr std::array kTexts = {"Wall", "", "Ümlaut", "a&#10;b", "{}", "%@", "&#x2028;", "中文"};
    static constexpr std::array kTaskTypes = {"task", "milestone", "group", "hammock", "other"};
    static constexpr std::array kResourceTypes = {"Staff", "Equipment", "Material", "Group", "Other"};
    static constexpr std::array kRecalculate = {"duration", "effort", "units", "something_else", "Duration"};
    static constexpr std::array kScheduleTypes = {"asap", "alap", "none"};
    static constexpr std::array kKinds = {"FS", "SF", "SS", "FF", "XX"};
    static constexpr std::array kDays = {"sunday",   "monday", "tuesday",  "wednesday",
                                         "thursday", "friday", "saturday", "someday"};
    static constexpr std::array kTimes = {"0", "28800", "43200", "61200", "86400", "90000", "-1", "x", ""};
    static constexpr std::array kSamples = {"$1,234.56", "1 kr", "€ 1,000", "", ",", "£5"};

    template <std::size_t Count>
    std::string pick(const std::array<const char*, Count>& texts) {
        return texts[_choices.between<std::size_t>(0, Count - 1)];
    }
    bool oneIn(int chances) { return _choices.between(1, chances) == 1; }

    template <std::size_t Count>
    void element(std::string& text, const char* name, const std::array<const char*, Count>& values) {
        text += fmt::format("<{}>{}</{}>", name, pick(values), name);
    }
    template <std::size_t Count>
    void optional(std::string& text, const char* name, const std::array<const char*, Count>& values) {
        if (oneIn(3))
            element(text, name, values);
    }

    std::string note() {
        return oneIn(4) ? "<note/>" : "<note><text><p><run><lit>" + pick(kTexts) + "</lit></run></p></text></note>";
    }
    std::string userData() {
        std::string text = "<user-data>";
        for (int i = _choices.between(0, 3); i > 0; --i) {
            element(text, "key", kTexts);
            if (!oneIn(20))
                element(text, "string", kTexts);
        }
        return text + "</user-data>";
    }

    std::string spans() {
        std::string text;
        for (int i = _choices.between(0, 6); i > 0; --i)
            text += fmt::format("<time-span start-time=\"{}\" end-time=\"{}\"/>", pick(kTimes), pick(kTimes));
        return text;
    }
    std::string schedule() {
        std::string text = "<schedule>";
        for (int i = _choices.between(0, 4); i > 0; --i) {
            if (oneIn(2))
                text += fmt::format("<schedule-day day-of-week=\"{}\">{}</schedule-day>", pick(kDays), spans());
            else if (oneIn(2))
                text += fmt::format("<flattened-schedule-day day-of-week=\"{}\">{}</flattened-schedule-day>",
                                    pick(kDays), spans());
            else
                text += fmt::format("<flattened-schedule-day date=\"{}\">{}</flattened-schedule-day>", pick(kDates),
                                    spans());
        }
        for (int i = _choices.between(0, 2); i > 0; --i) {
            text += fmt::format("<calendar name=\"{}\" overtime=\"{}\">", pick(kBooleans), pick(kBooleans));
            for (int j = _choices.between(0, 4); j > 0; --j)
                text += event();
            text += "</calendar>";
        }
        return text + "</schedule>";
    }
    std::string event() {
        if (oneIn(8))
            return fmt::format("<event start=\"{}\" end=\"{}\"/>", pick(kDates),
                               oneIn(2) ? pick(kDates) : pick(kFarDates));
        const int day = _choices.between(1, 28);
        const int hour = _choices.between(0, 12);
        return fmt::format("<event start=\"2027-03-{:02}T{:02}:00:00Z\" end=\"2027-03-{:02}T{:02}:00:00Z\"/>", day,
                           hour, day + _choices.between(0, 5), hour + _choices.between(0, 3));
    }

    std::string resource() {
        std::string text = "<resource id=\"" + pick(kResourceIds) + "\">";
        if (!oneIn(8))
            element(text, "type", kResourceTypes);
        optional(text, "name", kTexts);
        optional(text, "units-available", kNumbers);
        optional(text, "efficiency", kNumbers);
        optional(text, "cost-per-use", kNumbers);
        optional(text, "cost-per-hour", kNumbers);
        optional(text, "email-address", kTexts);
        if (oneIn(4))
            text += note();
        if (oneIn(4))
            text += userData();
        if (oneIn(2))
            text += schedule();
        for (int i = _choices.between(0, 3); i > 0; --i)
            text += "<child-resource idref=\"" + pick(kResourceIds) + "\"/>";
        return text + "</resource>";
    }

    std::string task() {
        std::string text = "<task id=\"" + pick(kTaskIds) + "\">";
        optional(text, "title", kTexts);
        optional(text, "type", kTaskTypes);
        if (oneIn(12)) {
            optional(text, "start-date", kDates);
        } else {
            text += "<start-date>2027-03-01T08:00:00Z</start-date><end-date>";
            text += oneIn(6) ? pick(kDates) : std::string("2027-03-05T17:00:00Z");
            text += "</end-date>";
        }
        element(text, "duration", kNumbers);
        optional(text, "effort", kNumbers);
        optional(text, "effort-done", kNumbers);
        optional(text, "completion-percentage", kNumbers);
        optional(text, "priority", kNumbers);
        optional(text, "leveled-start", kDates);
        optional(text, "schedule-type", kScheduleTypes);
        optional(text, "recalculate", kRecalculate);
        optional(text, "locked-start-date", kDates);
        optional(text, "locked-end-date", kDates);
        optional(text, "start-constraint-date", kDates);
        optional(text, "end-constraint-date", kDates);
        optional(text, "start-no-earlier-than", kDates);
        optional(text, "end-no-later-than", kDates);
        optional(text, "static-cost", kNumbers);
        optional(text, "splittable", kBooleans);
        if (oneIn(4))
            text += note();
        if (oneIn(4))
            text += userData();
        if (oneIn(3))
            text += fmt::format("<prerequisite-task idref=\"{}\" kind=\"{}\"><lead-time is-percentage=\"{}\">{}"
                                "</lead-time></prerequisite-task>",
                                pick(kTaskIds), pick(kKinds), pick(kBooleans), pick(kNumbers));
        for (int i = _choices.between(0, 2); i > 0; --i)
            text += fmt::format("<assignment idref=\"{}\" units=\"{}\"/>", pick(kResourceIds), pick(kNumbers));
        if (oneIn(8))
            text += "<split/>";
        for (int i = _choices.between(0, 3); i > 0; --i)
            text += "<child-task idref=\"" + pick(kTaskIds) + "\"/>";
        return text + "</task>";
    }

    Choices& _choices;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brackwater;
    const fuzz::SilentLog silent;
    Choices choices(std::span(data, size));
    BundleMaker maker(choices);
    const std::string scenario = maker.scenario();
    const std::string contents = maker.contents();
    fuzz::mapScenario(scenario, contents, choices.either() ? scenario : std::string());
    return 0;
}
