#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"

#include <memory>

namespace brackwater {

class MSPEXMLNotesAdapter;

/// Flattens a rich-text note to plain text: one line per paragraph, each ended by a line end. All formatting is lost.
class MSPENoteMapper final : public MSPEObjectMapperBase {
public:
    /// Works without a coordinator.
    MSPENoteMapper() noexcept : MSPEObjectMapperBase(nullptr) {}

    /// Null if the note has no text.
    [[nodiscard]] std::shared_ptr<MSPEXMLNotesAdapter> newNotesFromZELBNote(XMLElement zelbNote) const;
};

} // namespace brackwater
