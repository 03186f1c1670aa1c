#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"

#include "support/MappedProject.h"

#include <gtest/gtest.h>

namespace brackwater::test {

namespace {

std::string scenarioWithNamespaces(std::string_view declarations, std::string_view root = "scenario") {
    return std::string("<").append(root).append(" ").append(declarations).append("/>");
}

// Empty if the root is a scenario, otherwise why it is not.
std::string faultOf(const std::string& document) {
    const LogCapture log;
    MSPEMapper mapper(documentOf(document), tableOfContents(), {}, std::nullopt);
    try {
        mapper.map();
    } catch (const Exception&) {
        // A scenario without its roots: the mapping got past the check of the root element.
        return "";
    }
    EXPECT_EQ(mapper.mspdiXmlDoc(), nullptr);
    EXPECT_FALSE(log.contains("Mapping"));
    return mapper.notMappedReason();
}

} // namespace

TEST(Mapper, IgnoresSchemeAndHostOfTheNamespace) {
    for (const char* uri : {"http://www.tarnwick.example/namespace/Tarnwick/v2", "https://a/namespace/Tarnwick/v2",
                            "urn:/namespace/Tarnwick/v2", "http://a:80/namespace/Tarnwick/v2"})
        EXPECT_EQ(faultOf(scenarioWithNamespaces("xmlns='" + std::string(uri) + "'")), "") << uri;
    EXPECT_EQ(faultOf("<t:scenario xmlns:t='http://a/namespace/Tarnwick/v2'/>"), "");
}

TEST(Mapper, OtherNamespacesAreNotMapped) {
    for (const char* uri :
         {"/namespace/Tarnwick/v2", "http://a/namespace/Tarnwick/v2?x", "http://a/namespace/Tarnwick/v2#x",
          "http://a/x/namespace/Tarnwick/v2", "http://a/namespace/Tarnwick/v2/", "http://a/namespace/Tarnwick/v1",
          "http:namespace/Tarnwick/v2", "http://a/namespace/tarnwick/v2", "1:/namespace/Tarnwick/v2", "http://a"})
        EXPECT_EQ(faultOf(scenarioWithNamespaces("xmlns='" + std::string(uri) + "'")),
                  "The namespace of the scenario is '" + std::string(uri) +
                      "': its path is not '/namespace/Tarnwick/v2'.");
}

TEST(Mapper, RootMustBeAScenarioWithOneNamespace) {
    EXPECT_EQ(faultOf(scenarioWithNamespaces("")),
              "The root element of the scenario declares 0 namespaces instead of one: ''.");
    EXPECT_EQ(faultOf(scenarioWithNamespaces("xmlns='http://a/namespace/Tarnwick/v2' xmlns:b='http://b'")),
              "The root element of the scenario declares 2 namespaces instead of one: "
              "'http://a/namespace/Tarnwick/v2', 'http://b'.");
    EXPECT_EQ(faultOf(scenarioWithNamespaces("xmlns='http://a/namespace/Tarnwick/v2'", "Scenario")),
              "The root element of the scenario is 'Scenario', not 'scenario'.");
}

TEST(Mapper, MissingDocumentIsNotMapped) {
    MSPEMapper mapper(nullptr, tableOfContents(), {}, std::nullopt);
    EXPECT_EQ(mapper.notMappedReason(), "");
    mapper.map();
    EXPECT_EQ(mapper.mspdiXmlDoc(), nullptr);
    EXPECT_EQ(mapper.notMappedReason(), "The bundle has no scenario with the id of the one that is being edited.");
}

TEST(Mapper, ProjectMapperExistsOnlyDuringMapping) {
    const LogCapture log;
    MSPEMapper good(ScenarioBuilder::withRoots().document(), tableOfContents(), {}, std::nullopt);
    good.map();
    EXPECT_NE(good.mspdiXmlDoc(), nullptr);
    EXPECT_EQ(good.projectMapper(), nullptr);
    EXPECT_EQ(good.notMappedReason(), "");

    MSPEMapper bad(ScenarioBuilder().document(), tableOfContents(), {}, std::nullopt);
    EXPECT_THROW(bad.map(), Exception);
    EXPECT_EQ(bad.projectMapper(), nullptr);
}

TEST(Mapper, TemplateOfUnknownFormatCountsAsVersion3) {
    const LogCapture log;
    EXPECT_EQ(MSPEMapper(nullptr, tableOfContents(), {}, std::nullopt).mppVersion(), 3);
    const auto missing = FileURL::fileURLWithPath("/nonexistent/template.mpp", false);
    EXPECT_EQ(MSPEMapper(nullptr, tableOfContents(), {}, missing).mppVersion(), 3);
}

} // namespace brackwater::test
