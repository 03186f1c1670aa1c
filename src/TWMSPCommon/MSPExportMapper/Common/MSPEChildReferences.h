#pragma once

#include "Platform/Xml/XMLElement.h"

#include <optional>
#include <string_view>

namespace brackwater {

/// Iterates over the members of a group of tasks or resources, to which the group refers by id.
class MSPEChildReferences {
public:
    /// `childName` is the name of the referenced elements in the scenario, `referenceName` that of the referring
    /// elements in the group. Both outlive this.
    MSPEChildReferences(XMLElement zelbScenario, XMLElement group, std::string_view referenceName,
                        std::string_view childName);

    /// Null after the last one; skips references to missing elements.
    std::optional<XMLElement> nextChild();

private:
    void skipOtherElements();

    XMLElement _scenario;
    std::string_view _referenceName;
    std::string_view _childName;
    std::optional<XMLElement> _next;
};

} // namespace brackwater
