#include "TWMSPCommon/MSPExportMapper/Common/MSPEUserDataMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

// Field id of Text1; Text2 and so on follow at fixed intervals.
constexpr std::size_t kFirstTaskTextField = 188743731;     // 0xB400033
constexpr std::size_t kFirstResourceTextField = 205520904; // 0xC400008
constexpr std::size_t kTextFieldStep = 3;

constexpr std::string_view kNoGuid = "00000000-0000-0000-0000-000000000000";

} // namespace

std::vector<std::shared_ptr<MSPEXMLExtendedAttributeAdapter>>
MSPEUserDataMapper::newExtendedAttributesFromUserData(XMLElement userData) {
    const auto keys = userData.objectsForXQuery("key");
    const auto strings = userData.objectsForXQuery("string");
    assertThat(keys.size() == strings.size(), "Keys and Values mismatch number.");

    std::vector<std::shared_ptr<MSPEXMLExtendedAttributeAdapter>> attributes;
    attributes.reserve(keys.size());
    std::string buffer;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::string_view key = keys[i].textView(buffer);
        auto id = getExtendedAttributeIdByName(key);
        if (!id)
            id = addExtendedAttribute(key);
        auto attribute = std::make_shared<MSPEXMLExtendedAttributeAdapter>("ExtendedAttribute", mapper());
        attribute->addChildElementWithName("FieldID", *id);
        attribute->addChildElementWithName("Value", stringByReplacingOccurrencesOfNewline(strings[i].textView(buffer)));
        attributes.push_back(std::move(attribute));
    }
    return attributes;
}

std::optional<std::string> MSPEUserDataMapper::getExtendedAttributeIdByName(std::string_view key) const {
    const std::string* id = _extendedAttributeIds.find(key);
    return id != nullptr ? std::optional(*id) : std::nullopt;
}

std::string MSPEUserDataMapper::addExtendedAttribute(std::string_view key) {
    const auto& project = mapper()->mspdiProject();
    assertThat(project != nullptr, "Failed to get Project XML document from the Mapper.");
    const auto definitions = project->addChildElementWithName("ExtendedAttributes");

    const std::size_t position = _extendedAttributeIds.size();
    const std::size_t firstField = _isTask ? kFirstTaskTextField : kFirstResourceTextField;
    std::string id = std::to_string(firstField + position * kTextFieldStep);
    _extendedAttributeIds.tryAdd(key, id);

    auto definition = std::make_shared<MSPEXMLExtendedAttributeAdapter>("ExtendedAttribute", mapper());
    definition->addChildElementWithName("FieldID", id);
    definition->addChildElementWithName("FieldName", fmt::format("Text{}", position + 1));
    definition->addChildElementWithName("Alias", stringByReplacingOccurrencesOfNewline(key));
    definition->addChildElementWithName("Guid", kNoGuid);
    definitions->addChild(definition);
    return id;
}

} // namespace brackwater
