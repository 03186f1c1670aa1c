#pragma once

#include "Platform/Xml/XMLDocument.h"

#include <memory>
#include <string>
#include <string_view>

namespace brackwater::test {

/// Builds scenario documents from short texts: a record is its id, a list of items "name=value ...", and further XML.
///
/// The items become child elements, "effort=3600" <effort>3600</effort>, but for these:
///   child=t2,t3      references to children ("child-task" or "child-resource")
///   assign=r1:0.5    an assignment, with units where a colon follows; repeated for several
///   after=t1:SS:60   a predecessor with kind and lead in seconds, both of which may be missing; a
///                    percent sign behind it marks the lead as a fraction
/// A task gets dates and a duration of one working day where its items do not name them; "start-date=-" leaves one out.
/// The roots are "r-1" and "t-1" unless others are named.
class ScenarioBuilder {
public:
    ScenarioBuilder& rootAttribute(std::string_view attribute); ///< further attributes of the root: fixed-end="yes"
    ScenarioBuilder& topResource(std::string_view id);          ///< "-" leaves the element out
    ScenarioBuilder& topTask(std::string_view id);
    ScenarioBuilder& item(std::string_view items); ///< child elements of the root
    ScenarioBuilder& resource(std::string_view id, std::string_view items, std::string_view xml = "");
    ScenarioBuilder& task(std::string_view id, std::string_view items = "", std::string_view xml = "");
    ScenarioBuilder& xml(std::string_view text); ///< anything else below the root

    [[nodiscard]] std::string text() const;
    [[nodiscard]] std::shared_ptr<XMLDocument> document() const;

    /// A group of everybody, and a group of everything: the least that a document has.
    [[nodiscard]] static ScenarioBuilder withRoots(std::string_view childResources = "",
                                                   std::string_view childTasks = "");

private:
    std::string _rootAttributes;
    std::string _topResource = "r-1";
    std::string _topTask = "t-1";
    std::string _body;
};

/// A document of a text that must read.
[[nodiscard]] std::shared_ptr<XMLDocument> documentOf(std::string_view text);
/// A table of contents with that XML in its `project`.
[[nodiscard]] std::shared_ptr<XMLDocument> tableOfContents(std::string_view projectXml = "");

} // namespace brackwater::test
