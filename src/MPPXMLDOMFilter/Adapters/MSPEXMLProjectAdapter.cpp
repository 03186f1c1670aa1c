#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "MPPXMLDOMFilter/Adapters/ElementVocabulary.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPCExtensions.h"

namespace brackwater {

namespace {

using namespace conversions;

/// 0 to 3: before, after, before with a blank, after with a blank. Any other value means before.
void setCurrencySymbolPosition(MPPProject& project, ElementText text) {
    const std::int64_t position = integer(text);
    project.currencySymbolPosition = position >= 0 && position <= 3 ? static_cast<std::int32_t>(position) : 0;
}

void setScheduleFromStart(MPPProject& project, ElementText text) {
    Error error;
    const bool fromStart = MSPCBoolValueFromString(text.value_or(""), &error);
    project.scheduleFromStart = error ? true : fromStart;
}

void setTitle(MPPProject& project, ElementText title) {
    project.title = text(title);
    assertThat(project.summaryInfo != nullptr, "Project Summary Info has not been created yet.");
    project.summaryInfo->title = project.title;
}

constexpr ElementVocabulary kVocabulary(std::to_array<VocabularyRow<MPPProject>>({
    {"CalendarUID", setProxy<&MPPProject::calendar>},
    {"CurrencyCode", setField<&MPPProject::currencyCode, text>},
    {"CurrencyDigits", setField<&MPPProject::currencyDigits, integer>},
    {"CurrencySymbol", setField<&MPPProject::currencySymbol, text>},
    {"CurrencySymbolPosition", setCurrencySymbolPosition},
    {"FinishDate", setField<&MPPProject::endDate, date>},
    {"HonorConstraints", setField<&MPPProject::honorConstraints, boolean>},
    {"NewTasksAreManual", dropped},
    {"ScheduleFromStart", setScheduleFromStart},
    {"StartDate", setField<&MPPProject::startDate, date>},
    {"Title", setTitle},
    {"WeekStartDay", setField<&MPPProject::weekStartDay, int32>},
}));

/// Starts a new list.
template <typename Record>
std::shared_ptr<MSPEXMLAdapter> newCollection(const MSPEXMLProjectAdapter& project, std::string_view name,
                                              std::vector<std::shared_ptr<Record>> MPPProject::*list) {
    ((*project.mppDomObject()).*list).clear();
    return MSPEXMLCollectionAdapter<Record>::onListOf(project, name, list);
}

} // namespace

void MSPEXMLProjectAdapter::addNamespace(ElementText uri) {
    assertThat(uri == kNamespaceURI, "Incorrect namespace: \"{}\"", shown(uri));
}

void MSPEXMLProjectAdapter::addChild(const std::shared_ptr<MSPEXMLAdapter>& child) {
    const bool isCalendars =
        dynamic_cast<const MSPEXMLCollectionAdapterBase*>(child.get()) && child->name() == "Calendars";
    assertThat(isCalendars, "Unexpected object of class '{}' to add as a child to the project.",
               classNameOf(child.get()));
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLProjectAdapter::addChildElementWithName(std::string_view name) {
    if (name == "Assignments")
        return newCollection(*this, name, &MPPProject::assignments);
    if (name == "ExtendedAttributes")
        return MSPEXMLCollectionAdapter<const MPPExtendedAttribute>::onListOf(*this, name,
                                                                              &MPPProject::extendedAttributes);
    if (name == "Resources")
        return newCollection(*this, name, &MPPProject::resources);
    if (name == "Tasks")
        return newCollection(*this, name, &MPPProject::tasks);
    return nullptr;
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLProjectAdapter::addChildElementWithName(std::string_view name,
                                                                               ElementText stringValue) {
    kVocabulary.store(*mppDomObject(), name, stringValue);
    return nullptr;
}

void MSPEXMLProjectAdapter::insertComment(ElementText, int) {}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLProjectAdapter::singleObjectForXQuery(std::string_view, Error*) {
    return nullptr;
}

} // namespace brackwater
