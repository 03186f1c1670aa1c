#include "TWMSPCommon/MSPExportMapper/Resources/MSPEResourceMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLBaselineAdapters.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLExtendedAttributeAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLNotesAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceAdapter.h"
#include "Platform/Log/Log.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaselineMappers.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarMapper.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPENoteMapper.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEUserDataMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEIdMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEProjectMapper.h"
#include "TWMSPCommon/MSPExportMapper/Source/MSPESourceValues.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

enum class Child : std::size_t {
    Name,
    Type,
    UnitsAvailable,
    Efficiency,
    Note,
    UserData,
    CostPerUse,
    CostPerHour,
    EmailAddress
};

constexpr NameTable kChildNames(std::array<std::string_view, 9>{"name", "type", "units-available", "efficiency", "note",
                                                                "user-data", "cost-per-use", "cost-per-hour",
                                                                "email-address"});

using Children = MSPEChildElements<Child, kChildNames.size()>;

constexpr std::string_view kMaterial = "0";
constexpr std::string_view kWork = "1";
constexpr std::string_view kHourlyRate = "2";

// The target's resource type; nothing if it has none.
std::optional<std::string_view> resourceType(std::optional<std::string_view> type) {
    if (type == "Material")
        return kMaterial;
    if (type == "Staff" || type == "Equipment")
        return kWork;
    return std::nullopt;
}

// The steps of one resource, in the order of the element's children.
class ResourceBuilder {
public:
    ResourceBuilder(MSPEMapper* mapper, const Children& children, std::string_view id)
        : _mapper(mapper), _children(children), _id(id),
          _resource(std::make_shared<MSPEXMLResourceAdapter>("Resource", mapper)) {}

    std::shared_ptr<MSPEXMLResourceAdapter> build(std::string_view type, std::int64_t calendarUID) {
        addIdentity();
        if (const auto name = _children.text(Child::Name))
            add("Name", stringByReplacingOccurrencesOfNewline(*name));
        add("Type", type);
        add("MaxUnits", fmt::format("{:f}", _children.onlyNumber(Child::UnitsAvailable).value_or(1.0)));
        warnOfEfficiency();
        add("IsNull", "0");
        addNotes();
        addUserData();
        addCosts();
        if (const auto address = _children.text(Child::EmailAddress))
            add("EmailAddress", address);
        if (calendarUID >= 0)
            add("CalendarUID", std::to_string(calendarUID));
        return std::move(_resource);
    }

private:
    void add(std::string_view name, ElementText text) { _resource->addChildElementWithName(name, text); }

    void addIdentity() {
        const std::string uid = _mapper->idMapper()->resourceUIDFromZelbResourceId(_id);
        const std::int64_t number = MSPEMapper::nextResourceID();
        add("UID", uid);
        add("ID", std::to_string(number));
        assertThat(MSPEProjectMapper::ofMapper(_mapper).registerResource(uid, number),
                   "Duplicated Resource UID='{}' found (zelb Resource id='{}').", uid, _id);
    }

    void warnOfEfficiency() const {
        const auto efficiency = _children.onlyNumber(Child::Efficiency);
        if (efficiency && *efficiency != 1.0)
            logLine("WARINING: MS Project doesn't support the Tarnwick 'efficiency' attribute for resources. "
                    "Efficiency={:.2f}% in resource '{}' is ignored.",
                    *efficiency * 100, _children.text(Child::Name).value_or("(null)"));
    }

    void addNotes() {
        const auto note = _children.last(Child::Note);
        if (!note)
            return;
        if (const auto notes = MSPENoteMapper().newNotesFromZELBNote(*note))
            _resource->addChild(notes);
    }

    void addUserData() {
        const auto userData = _children.last(Child::UserData);
        if (!userData)
            return;
        for (const auto& attribute : MSPEUserDataMapper(_mapper, false).newExtendedAttributesFromUserData(*userData))
            _resource->addChild(attribute);
    }

    void addCosts() {
        // Amounts of money are in hundredths, rates as in the source.
        if (const auto cost = _children.number(Child::CostPerUse))
            add("CostPerUse", fmt::format("{:.2f}", *cost * 100));
        if (const auto rate = _children.text(Child::CostPerHour)) {
            add("StandardRate", rate);
            add("StandardRateFormat", kHourlyRate);
        }
    }

    MSPEMapper* _mapper;
    const Children& _children;
    std::string_view _id;
    std::shared_ptr<MSPEXMLResourceAdapter> _resource;
};

// If the resource has no element, its baselines are looked up but dropped.
void addBaselines(MSPEMapper* mapper, XMLElement zelbResource, MSPEXMLResourceAdapter* resource) {
    const std::size_t count = mapper->zelbBaselines().size();
    if (count == 0)
        return;
    logLine("  Mapping {} baselines for Resource ...", count);
    if (!resource)
        return;
    for (std::size_t number = 0; number < count; ++number)
        if (const auto baseline = MSPEResourceBaselineMapper(number, mapper).newBaselineFromZelbResource(zelbResource))
            resource->addChild(baseline);
}

} // namespace

std::shared_ptr<MSPEXMLResourceAdapter>
MSPEResourceMapper::newResourceFromZELBResource(XMLElement zelbResource, std::optional<XMLElement> parentResource) {
    const auto id = zelbResource.attributeForName("id");
    assertThat(id.has_value(), "Resource <{}> has no 'id' attribute.", static_cast<const void*>(zelbResource.node()));

    const Children children(zelbResource, kChildNames);
    if (parentResource)
        logLine("  Mapping Resource id='{}' name='{}'", *id, children.text(Child::Name).value_or(""));
    else
        logLine("  Mapping Top Resource id='{}'", *id);

    MSPECalendarMapper& calendarMapper = *mapper()->calendarMapper();
    _resourceCalendarUID = calendarMapper.mapCalendarForResource(zelbResource, parentResource);
    _resourceCalendar = calendarMapper.calendar();

    std::shared_ptr<MSPEXMLResourceAdapter> resource;
    if (const auto type = resourceType(children.text(Child::Type)))
        resource = ResourceBuilder(mapper(), children, *id).build(*type, _resourceCalendarUID);
    addBaselines(mapper(), zelbResource, resource.get());
    if (resource && mapper()->keepsSource())
        resource->mppDomObject()->source = sourceOfResource(*mapper(), zelbResource);
    return resource;
}

std::shared_ptr<MSPEXMLResourceAdapter> MSPEResourceMapper::newDummyResourceWithMapper(MSPEMapper* mapper) {
    auto resource = std::make_shared<MSPEXMLResourceAdapter>("Resource", mapper);
    const std::string number = std::to_string(MSPEMapper::nextResourceID());
    resource->addChildElementWithName("UID", number);
    resource->addChildElementWithName("ID", number);
    resource->addChildElementWithName("Type", kWork);
    resource->addChildElementWithName("IsNull", "0");
    return resource;
}

} // namespace brackwater
