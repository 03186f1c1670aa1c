#include "support/ScenarioBuilder.h"

#include <stdexcept>
#include <vector>

namespace brackwater::test {

namespace {

constexpr std::string_view kLeftOut = "-";

std::vector<std::string_view> parts(std::string_view text, char separator) {
    std::vector<std::string_view> found;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find(separator), text.size());
        if (length > 0)
            found.push_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return found;
}

std::string element(std::string_view name, std::string_view attributes, std::string_view content) {
    std::string text = "<";
    text.append(name);
    if (!attributes.empty())
        text.append(" ").append(attributes);
    return text.append(">").append(content).append("</").append(name).append(">");
}

std::string attribute(std::string_view name, std::string_view value) {
    return std::string(name).append("=\"").append(value).append("\"");
}

std::string references(std::string_view name, std::string_view ids) {
    std::string text;
    for (const auto id : parts(ids, ','))
        text += element(name, attribute("idref", id), "");
    return text;
}

std::string assignment(std::string_view value) {
    const std::size_t colon = value.find(':');
    std::string attributes = attribute("idref", value.substr(0, colon));
    if (colon != std::string_view::npos)
        attributes += " " + attribute("units", value.substr(colon + 1));
    return element("assignment", attributes, "");
}

std::string predecessor(std::string_view value) {
    const auto fields = parts(value, ':');
    std::string attributes = attribute("idref", fields.at(0));
    if (fields.size() > 1)
        attributes += " " + attribute("kind", fields[1]);
    std::string lead;
    if (fields.size() > 2) {
        const bool isPercent = fields[2].ends_with('%');
        lead = element("lead-time", isPercent ? attribute("is-percentage", "true") : "",
                       isPercent ? fields[2].substr(0, fields[2].size() - 1) : fields[2]);
    }
    return element("prerequisite-task", attributes, lead);
}

std::string itemsAsXml(std::string_view items, std::string_view childName) {
    std::string text;
    for (const auto item : parts(items, ' ')) {
        const std::size_t equals = item.find('=');
        const std::string_view name = item.substr(0, equals);
        const std::string_view value = equals == std::string_view::npos ? "" : item.substr(equals + 1);
        if (value == kLeftOut)
            continue;
        if (name == "child")
            text += references(childName, value);
        else if (name == "assign")
            text += assignment(value);
        else if (name == "after")
            text += predecessor(value);
        else
            text += element(name, "", value);
    }
    return text;
}

std::string withDefaults(std::string_view items) {
    std::string all;
    for (const std::string_view standard :
         {"start-date=2012-06-01T08:00:00Z", "end-date=2012-06-01T17:00:00Z", "duration=28800"}) {
        const std::string_view name = standard.substr(0, standard.find('=') + 1);
        if (!items.starts_with(name) && items.find(std::string(" ").append(name)) == std::string_view::npos)
            all.append(standard).append(" ");
    }
    return all.append(items);
}

} // namespace

ScenarioBuilder& ScenarioBuilder::rootAttribute(std::string_view text) {
    _rootAttributes.append(" ").append(text);
    return *this;
}

ScenarioBuilder& ScenarioBuilder::topResource(std::string_view id) {
    _topResource = id;
    return *this;
}

ScenarioBuilder& ScenarioBuilder::topTask(std::string_view id) {
    _topTask = id;
    return *this;
}

ScenarioBuilder& ScenarioBuilder::item(std::string_view items) { return xml(itemsAsXml(items, "child")); }

ScenarioBuilder& ScenarioBuilder::resource(std::string_view id, std::string_view items, std::string_view further) {
    return xml(element("resource", attribute("id", id), itemsAsXml(items, "child-resource").append(further)));
}

ScenarioBuilder& ScenarioBuilder::task(std::string_view id, std::string_view items, std::string_view further) {
    return xml(element("task", attribute("id", id), itemsAsXml(withDefaults(items), "child-task").append(further)));
}

ScenarioBuilder& ScenarioBuilder::xml(std::string_view further) {
    _body.append(further);
    return *this;
}

std::string ScenarioBuilder::text() const {
    std::string tops;
    if (_topResource != kLeftOut)
        tops += element("top-resource", attribute("idref", _topResource), "");
    if (_topTask != kLeftOut)
        tops += element("top-task", attribute("idref", _topTask), "");
    return "<scenario xmlns=\"http://www.tarnwick.example/namespace/Tarnwick/v2\"" + _rootAttributes + ">" + tops +
           _body + "</scenario>";
}

std::shared_ptr<XMLDocument> ScenarioBuilder::document() const { return documentOf(text()); }

ScenarioBuilder ScenarioBuilder::withRoots(std::string_view childResources, std::string_view childTasks) {
    ScenarioBuilder builder;
    builder.resource("r-1", std::string("type=Group child=").append(childResources));
    builder.task("t-1", std::string("type=group child=").append(childTasks));
    return builder;
}

std::shared_ptr<XMLDocument> documentOf(std::string_view text) {
    std::string reason;
    std::shared_ptr<XMLDocument> document = XMLDocument::readText(text, "test.xml", &reason);
    if (!document)
        throw std::runtime_error("test document does not read: " + reason);
    return document;
}

std::shared_ptr<XMLDocument> tableOfContents(std::string_view projectXml) {
    return documentOf(std::string("<contents><project>").append(projectXml).append("</project></contents>"));
}

} // namespace brackwater::test
