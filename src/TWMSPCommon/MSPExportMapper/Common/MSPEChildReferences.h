#pragma once

#include "Platform/Xml/XMLElement.h"

#include <optional>
#include <string_view>

namespace brackwater {

/// The members of a group of tasks or resources, one after the other: the group refers to them by their ids.
class MSPEChildReferences {
public:
    /// `childName` is the name of the scenario's elements that are referred to, `referenceName` that of the group's
    /// elements that do so. Both outlive this.
    MSPEChildReferences(XMLElement zelbScenario, XMLElement group, std::string_view referenceName,
                        std::string_view childName);

    /// Null behind the last one; references to elements that do not exist are passed over.
    std::optional<XMLElement> nextChild();

private:
    void skipOtherElements();

    XMLElement _scenario;
    std::string_view _referenceName;
    std::string_view _childName;
    std::optional<XMLElement> _next;
};

} // namespace brackwater
