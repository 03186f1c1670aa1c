#include "MPPXMLDOMFilter/Corrections/ResourceInitials.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "Platform/Text/TextEncoding.h"

namespace brackwater {

namespace {

std::string firstCharacter(const std::string& text) {
    constexpr std::size_t kUnitsOfPair = 2;
    const std::size_t size = sizeOfPrefix(text, 1);
    return text.substr(0, size > 0 ? size : sizeOfPrefix(text, kUnitsOfPair));
}

} // namespace

void addResourceInitials(MPPProject& project) {
    for (const auto& resource : project.resources)
        if (!resource->initials && resource->name)
            resource->initials = firstCharacter(*resource->name);
}

} // namespace brackwater
