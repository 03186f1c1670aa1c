#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "Platform/Values/Error.h"

#include <memory>
#include <string_view>

namespace brackwater {

/// "Project", the root of the target document. Its record owns all others.
class MSPEXMLProjectAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLProjectAdapter, MSPEXMLRecordAdapter<MPPProject>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLProjectAdapter";
    /// The published namespace of the vocabulary.
    static constexpr std::string_view kNamespaceURI = "http://schemas.microsoft.com/project";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    /// Checks the URI, which must be the vocabulary's.
    void addNamespace(ElementText uri);
    /// Accepts the collection "Calendars", whose records reach the project in post-processing; anything else fails.
    void addChild(const std::shared_ptr<MSPEXMLAdapter>& child) override;
    /// "Assignments", "Resources", "Tasks" with a new list each, and "ExtendedAttributes": collections on the record's
    /// lists.
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name) override;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
    /// Comments have no place in a record.
    void insertComment(ElementText text, int index);
    /// Adapters cannot be queried: always null, without an error.
    std::shared_ptr<MSPEXMLAdapter> singleObjectForXQuery(std::string_view query, Error* error = nullptr);
};

} // namespace brackwater
