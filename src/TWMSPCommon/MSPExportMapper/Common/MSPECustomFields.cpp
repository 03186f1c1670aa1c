#include "TWMSPCommon/MSPExportMapper/Common/MSPECustomFields.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "Platform/Values/Exception.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brackwater {

namespace {

constexpr std::string_view kAttributeClass = "MSPEXMLExtendedAttributeAdapter";

using Attributes = std::vector<std::shared_ptr<const MPPExtendedAttribute>>;
using AliasesByField = std::unordered_map<std::string_view, std::string_view>;

// If a field has several definitions, the last one counts.
AliasesByField aliasesByField(const Attributes& definitions) {
    AliasesByField aliases;
    for (const auto& definition : definitions) {
        assertThat(definition && definition->isValidAttribute() && definition->isAttributeName(),
                   "Invalid object of class '{}' found in MPPProject.customResourceFieldNames.", kAttributeClass);
        aliases[*definition->fieldID] = *definition->alias;
    }
    return aliases;
}

// Moves a record's values to its list of texts, and their aliases to the project's list of names.
void moveValues(Attributes& attributes, const AliasesByField& aliases, std::string_view listName,
                std::vector<std::string>& names, std::vector<std::string>& values) {
    for (const auto& attribute : attributes) {
        assertThat(attribute && attribute->isValidAttribute() && attribute->isAttributeValue(),
                   "Invalid object of class '{}' found in {}.", kAttributeClass, listName);
        const auto alias = aliases.find(*attribute->fieldID);
        assertThat(alias != aliases.end(), "Can not find the definition of the custom field with ID='{}' of {}.",
                   *attribute->fieldID, listName);
        names.emplace_back(alias->second);
        values.push_back(*attribute->value);
    }
    Attributes().swap(attributes);
}

} // namespace

void resolveCustomFields(MPPProject& project) {
    assertThat(project.customTaskFieldNames.empty(), "Do not expect any objects in MPPProject.customTaskFieldNames.");
    const Attributes definitions = std::move(project.extendedAttributes);
    project.extendedAttributes.clear();
    project.customResourceFieldNames.clear();
    if (definitions.empty())
        return;

    const AliasesByField aliases = aliasesByField(definitions);
    for (const auto& task : project.tasks)
        moveValues(task->extendedAttributes, aliases, "MPPTask.customFieldValues", project.customTaskFieldNames,
                   task->customFieldValues);
    for (const auto& resource : project.resources)
        moveValues(resource->extendedAttributes, aliases, "MPPResource.customFieldsText",
                   project.customResourceFieldNames, resource->customFieldsText);
}

} // namespace brackwater
