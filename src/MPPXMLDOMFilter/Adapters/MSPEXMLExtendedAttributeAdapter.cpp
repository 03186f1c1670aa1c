#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "Platform/Values/Exception.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

void setOnce(std::optional<std::string>& field, std::string_view name, ElementText text) {
    assertThat(!field, "ExtendedAttribute {} is already set.", name);
    field = conversions::text(text);
}

using Attribute = MPPExtendedAttribute;

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<Attribute>>({
    {"FieldID", [](Attribute& record, ElementText text) { setOnce(record.fieldID, "FieldID", text); }},
    {"FieldName", [](Attribute& record, ElementText text) { setOnce(record.fieldName, "FieldName", text); }},
    {"Alias", [](Attribute& record, ElementText text) { setOnce(record.alias, "Alias", text); }},
    {"Guid", [](Attribute& record, ElementText text) { setOnce(record.guid, "Guid", text); }},
    {"Value", [](Attribute& record, ElementText text) { setOnce(record.value, "Value", text); }},
}));

} // namespace

std::shared_ptr<MSPEXMLAdapter> MSPEXMLExtendedAttributeAdapter::addChildElementWithName(std::string_view name,
                                                                                         ElementText stringValue) {
    kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

std::string MSPEXMLExtendedAttributeAdapter::description() const {
    using conversions::shown;
    return fmt::format("{}: FieldID='{}' FieldName='{}' Alias='{}' Value='{}' Guid='{}'", className(), shown(fieldID()),
                       shown(fieldName()), shown(alias()), shown(value()), shown(guid()));
}

} // namespace brackwater
