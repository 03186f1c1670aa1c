#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEOrderedMap.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

class MSPEXMLExtendedAttributeAdapter;

/// Converts the free key and value pairs of one element to text custom fields: values for the element, definitions for
/// the project. A key's field depends on its position within its element.
class MSPEUserDataMapper final : public MSPEObjectMapperBase {
public:
    /// For a task's or for a resource's fields.
    MSPEUserDataMapper(MSPEMapper* mapper, bool isTask) noexcept : MSPEObjectMapperBase(mapper), _isTask(isTask) {}

    /// Keys and strings matched by position; raises if their numbers differ.
    [[nodiscard]] std::vector<std::shared_ptr<MSPEXMLExtendedAttributeAdapter>>
    newExtendedAttributesFromUserData(XMLElement userData);

    [[nodiscard]] std::optional<std::string> getExtendedAttributeIdByName(std::string_view key) const;
    /// Defines a field in the project and returns its id.
    std::string addExtendedAttribute(std::string_view key);

private:
    bool _isTask;
    MSPEOrderedMap<std::string, std::string> _extendedAttributeIds;
};

} // namespace brackwater
