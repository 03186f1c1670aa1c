#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPExtendedAttribute.h"

#include <memory>
#include <optional>
#include <string>

namespace brackwater {

/// The definition of a custom field, or a value of one. The model holds it until post-processing turns it into names
/// and values.
class MSPEXMLExtendedAttributeAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLExtendedAttributeAdapter, MSPEXMLRecordAdapter<MPPExtendedAttribute>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLExtendedAttributeAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    /// Each name may occur once; a repetition is a failed assertion.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;

    [[nodiscard]] const std::optional<std::string>& fieldID() const noexcept { return mppDomObject()->fieldID; }
    [[nodiscard]] const std::optional<std::string>& fieldName() const noexcept { return mppDomObject()->fieldName; }
    [[nodiscard]] const std::optional<std::string>& alias() const noexcept { return mppDomObject()->alias; }
    [[nodiscard]] const std::optional<std::string>& guid() const noexcept { return mppDomObject()->guid; }
    [[nodiscard]] const std::optional<std::string>& value() const noexcept { return mppDomObject()->value; }
    [[nodiscard]] bool isValidAttribute() const noexcept { return mppDomObject()->isValidAttribute(); }
    [[nodiscard]] bool isAttributeName() const noexcept { return mppDomObject()->isAttributeName(); }
    [[nodiscard]] bool isAttributeValue() const noexcept { return mppDomObject()->isAttributeValue(); }
    [[nodiscard]] std::string description() const;
};

} // namespace brackwater
