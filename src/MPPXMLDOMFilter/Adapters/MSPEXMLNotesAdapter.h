#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"

#include <memory>
#include <optional>
#include <string>

namespace brackwater {

/// The notes of a task or resource: a text that the parent takes.
class MSPEXMLNotesAdapter final : public MSPEXMLAdapterClass<MSPEXMLNotesAdapter, MSPEXMLAdapter> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLNotesAdapter";
    using MSPEXMLAdapterClass::elementWithName;
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;
    MSPEXMLNotesAdapter(std::string_view name, MSPEMapper* mapper, ElementText stringValue);
    [[nodiscard]] static std::shared_ptr<MSPEXMLNotesAdapter> elementWithName(std::string_view name, MSPEMapper* mapper,
                                                                              ElementText stringValue);

    [[nodiscard]] const std::optional<std::string>& notes() const noexcept { return _notes; }

private:
    std::optional<std::string> _notes;
};

} // namespace brackwater
