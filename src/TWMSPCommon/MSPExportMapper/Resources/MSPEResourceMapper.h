#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace brackwater {

class MSPEXMLCalendarAdapter;
class MSPEXMLResourceAdapter;

/// Builds a "Resource" element from a source resource, and triggers its calendar.
class MSPEResourceMapper final : public MSPEObjectMapperBase {
public:
    using MSPEObjectMapperBase::MSPEObjectMapperBase;

    /// Null for groups and other resources that the target does not have. Without a parent it is the top resource.
    /// Raises if it has no id, or its UID is taken.
    [[nodiscard]] std::shared_ptr<MSPEXMLResourceAdapter>
    newResourceFromZELBResource(XMLElement zelbResource, std::optional<XMLElement> parentResource);
    /// The first resource of every project, a placeholder for none.
    [[nodiscard]] static std::shared_ptr<MSPEXMLResourceAdapter> newDummyResourceWithMapper(MSPEMapper* mapper);

    /// The calendar of the last mapped resource; null if it has none yet.
    [[nodiscard]] const std::shared_ptr<MSPEXMLCalendarAdapter>& resourceCalendar() const noexcept {
        return _resourceCalendar;
    }
    [[nodiscard]] std::int64_t resourceCalendarUID() const noexcept { return _resourceCalendarUID; }

private:
    std::shared_ptr<MSPEXMLCalendarAdapter> _resourceCalendar;
    std::int64_t _resourceCalendarUID = -1;
};

} // namespace brackwater
