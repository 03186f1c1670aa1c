#include "support/PlanBundle.h"

#include "support/ScenarioBuilder.h"

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
    return ScenarioBuilder::withRoots("", "t1").task("t1", "", element("title", std::string(title))).text();
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
