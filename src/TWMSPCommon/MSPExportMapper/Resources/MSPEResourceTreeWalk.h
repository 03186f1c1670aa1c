#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildReferences.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

class MSPEXMLAdapter;

/// The resource pass of a project: maps the resource tree depth first, parents before their children, to any depth;
/// fails on cycles.
class MSPEResourceTreeWalk final : public MSPEObjectMapperBase {
public:
    /// `resources` is the collection that takes the elements.
    MSPEResourceTreeWalk(MSPEMapper* mapper, XMLElement zelbScenario, MSPEXMLAdapter& resources)
        : MSPEObjectMapperBase(mapper), _scenario(zelbScenario), _resources(resources) {}

    /// A missing top resource fails like one without an id.
    void walkFrom(std::optional<XMLElement> topResource);

private:
    // A group whose members are being mapped. `_path` contains the names of all groups on the path; a group's own name
    // path begins at `pathBegin`, and the text had the length `pathEndBefore` before it was added.
    struct Group {
        XMLElement element;
        MSPEChildReferences members;
        bool hasPath;
        std::size_t pathBegin;
        std::size_t pathEndBefore;
    };

    void mapResource(XMLElement resource);
    void failIfReachedBefore(XMLElement resource) const;
    void enterGroup(XMLElement group);
    void leaveGroup();
    [[nodiscard]] std::optional<std::string_view> groupPath() const;

    XMLElement _scenario;
    MSPEXMLAdapter& _resources;
    std::vector<Group> _groups;
    std::string _path;
    std::int64_t _unnamedGroupsCount = 0;
};

} // namespace brackwater
