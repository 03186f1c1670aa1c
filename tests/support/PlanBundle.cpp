#include "support/PlanBundle.h"

#include <fmt/format.h>

namespace brackwater::test {

namespace {

std::string attribute(std::string_view name, const std::optional<std::string>& value) {
    return value ? fmt::format(" {}=\"{}\"", name, *value) : std::string();
}

std::string element(std::string_view name, const std::optional<std::string>& value) {
    return value ? fmt::format("<{0}>{1}</{0}>", name, *value) : std::string();
}

} // namespace

std::string scenarioText(std::string_view title) {
    return fmt::format(R"(<?xml version="1.0" encoding="UTF-8"?>
<scenario xmlns="http://tarnwick.example/namespace/Tarnwick/v2">
  <top-resource idref="r-1"/>
  <top-task idref="t-1"/>
  <start-date>2027-03-01T08:00:00Z</start-date>
  <end-date>2027-03-01T17:00:00Z</end-date>
  <resource id="r-1"><type>Group</type></resource>
  <task id="t-1">
    <title>Plan</title><type>group</type>
    <start-date>2027-03-01T08:00:00Z</start-date><end-date>2027-03-01T17:00:00Z</end-date><duration>28800</duration>
    <child-task idref="t1"/>
  </task>
  <task id="t1">
    <title>{}</title><type>task</type>
    <start-date>2027-03-01T08:00:00Z</start-date><end-date>2027-03-01T17:00:00Z</end-date><duration>28800</duration>
  </task>
</scenario>
)",
                       title);
}

std::string TableOfContents::text() const {
    std::string text = "<document>";
    if (hasProject) {
        text += "<project><title>Plan</title>";
        for (const Scenario& scenario : scenarios)
            text += fmt::format("<scenario{}{}{}/>", attribute("id", scenario.id),
                                attribute("filename", scenario.filename), attribute("name", scenario.name));
        text += "</project>";
    }
    for (const Window& window : windows)
        text += fmt::format("<window>{}{}</window>", element("editing-scenario", window.editing),
                            element("comparison-scenario", window.comparison));
    return text + "</document>";
}

std::string writeBundle(const TempFolder& folder, std::string_view name, const TableOfContents& contents) {
    const std::string bundle(name);
    folder.write(bundle + "/__TOC.xml", contents.text());
    folder.write(bundle + "/plan.xml", scenarioText("Task"));
    return folder.path(bundle);
}

} // namespace brackwater::test
