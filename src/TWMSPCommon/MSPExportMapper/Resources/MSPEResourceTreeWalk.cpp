#include "TWMSPCommon/MSPExportMapper/Resources/MSPEResourceTreeWalk.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceAdapter.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Resources/MSPEResourceMapper.h"

#include <fmt/format.h>

#include <iterator>

namespace brackwater {

namespace {

bool isGroup(XMLElement resource) { return stringValueForXQuery(resource, "type") == "Group"; }

} // namespace

void MSPEResourceTreeWalk::walkFrom(std::optional<XMLElement> topResource) {
    assertThat(topResource.has_value(), "Resource <{}> has no 'id' attribute.", static_cast<const void*>(nullptr));
    mapResource(*topResource);
    while (!_groups.empty()) {
        if (const auto member = _groups.back().members.nextChild())
            mapResource(*member);
        else
            leaveGroup();
    }
}

void MSPEResourceTreeWalk::mapResource(XMLElement resource) {
    if (isGroup(resource))
        failIfReachedBefore(resource);

    MSPEResourceMapper resourceMapper(mapper());
    const std::optional<XMLElement> parent = _groups.empty() ? std::nullopt : std::optional(_groups.back().element);
    const auto element = resourceMapper.newResourceFromZELBResource(resource, parent);
    assertThat(!resourceMapper.resourceCalendar() || resourceMapper.resourceCalendarUID() >= 1,
               "Expected Calendar UID > 0.");
    if (element) {
        _resources.addChild(element);
        if (const auto path = groupPath())
            element->addChildElementWithName("Group", *path);
    }
    if (isGroup(resource))
        enterGroup(resource);
}

// Prevents endless recursion into a group that contains itself. Members are looked up by id, and each one found so far
// already has its schedule.
void MSPEResourceTreeWalk::failIfReachedBefore(XMLElement resource) const {
    const auto id = resource.attributeView("id");
    if (id && mapper()->calendarMapper()->hasScheduleOf(*id))
        failAssertion(fmt::format("Resource tree is not a tree: '{}' is reached twice.", *id));
}

void MSPEResourceTreeWalk::enterGroup(XMLElement group) {
    Group entered{group, {_scenario, group, "child-resource", "resource"}, true, _path.size(), _path.size()};
    const auto name = stringValueForXQuery(group, "name");
    if (name && groupPath()) {
        entered.pathBegin = _groups.back().pathBegin;
        _path += '/';
        _path += *name;
    } else if (name) {
        _path += *name;
    } else if (!_groups.empty()) {
        // The name of an unnamed group does not continue the path of the groups above.
        fmt::format_to(std::back_inserter(_path), "Anonymous_Group_{}", ++_unnamedGroupsCount);
    } else {
        entered.hasPath = false;
    }
    _groups.push_back(entered);
}

void MSPEResourceTreeWalk::leaveGroup() {
    _path.resize(_groups.back().pathEndBefore);
    _groups.pop_back();
}

std::optional<std::string_view> MSPEResourceTreeWalk::groupPath() const {
    if (_groups.empty() || !_groups.back().hasPath)
        return std::nullopt;
    return std::string_view(_path).substr(_groups.back().pathBegin);
}

} // namespace brackwater
