#pragma once

#include "Platform/Xml/XMLDocument.h"

#include <memory>
#include <string>
#include <string_view>

namespace brackwater::test {

/// Builds scenario documents from short texts: a record is its id, a list of items "name=value ...", and further XML.
///
/// The items become child elements, "effort=3600" <effort>3600</effort>, except these:
///   child=t2,t3      references to children ("child-task" or "child-resource")
///   assign=r1:0.5    an assignment, with optional units after a colon; repeat it for several
///   after=t1:SS:60   a predecessor with optional kind and lead in seconds; a percent sign after the lead makes it a
///                    fraction
/// Tasks get default dates and a duration of one working day; "start-date=-" leaves one out. The default roots are
/// "r-1" and "t-1".
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

    /// A group of all resources and a group of all tasks: the minimum of a document.
    [[nodiscard]] static ScenarioBuilder withRoots(std::string_view childResources = "",
                                                   std::string_view childTasks = "");

private:
    std::string _rootAttributes;
    std::string _topResource = "r-1";
    std::string _topTask = "t-1";
    std::string _body;
};

/// Parses a text, which must be valid.
[[nodiscard]] std::shared_ptr<XMLDocument> documentOf(std::string_view text);
/// A table of contents with that XML in its `project`.
[[nodiscard]] std::shared_ptr<XMLDocument> tableOfContents(std::string_view projectXml = "");

} // namespace brackwater::test
