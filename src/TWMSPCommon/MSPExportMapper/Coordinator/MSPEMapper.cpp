#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLDocumentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "MPPXMLDOMFilter/Container/MPPTemplateFormat.h"
#include "Platform/Time/GregorianCalendar.h"
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPCDateTimeConverter.h"
#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaseline.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEIdMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEProjectMapper.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

constexpr std::string_view kScenario = "scenario";
constexpr std::string_view kNamespacePath = "/namespace/Tarnwick/v2";
constexpr std::string_view kApplicationVersion = "2.x";
constexpr int kUnknownFormat = 0;
constexpr int kAssumedFormat = 3;
// Below, what a second thread does is hardly more than what it costs.
constexpr std::size_t kTasksWorthAHelper = 3000;

// The next number for each kind of record, of a thread.
struct Counters {
    std::int64_t taskID = 0;
    std::int64_t resourceID = 0;
    std::int64_t assignmentUID = 1;
    std::int64_t calendarUID = 1;
};
constinit thread_local Counters counters;

int formatOfTemplate(const std::optional<FileURL>& templateUrl) {
    const int version = templateUrl ? formatVersionOfTemplateAtUrl(*templateUrl) : kUnknownFormat;
    return version != kUnknownFormat ? version : kAssumedFormat;
}

bool isSchemeByte(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           byte == '+' || byte == '-' || byte == '.';
}

// The part of an absolute URI after the scheme; nothing for any other text.
std::optional<std::string_view> behindScheme(std::string_view uri) {
    std::size_t length = 0;
    while (length < uri.size() && isSchemeByte(uri[length]))
        ++length;
    const bool beginsWithLetter = length > 0 && ((uri[0] | 0x20) >= 'a' && (uri[0] | 0x20) <= 'z');
    if (!beginsWithLetter || length == uri.size() || uri[length] != ':')
        return std::nullopt;
    return uri.substr(length + 1);
}

// Accepts any scheme and host.
bool isSourceNamespace(std::string_view uri) {
    auto rest = behindScheme(uri);
    if (!rest)
        return false;
    if (rest->starts_with("//"))
        rest = rest->substr(std::min(rest->find('/', 2), rest->size()));
    return *rest == kNamespacePath;
}

std::string descriptionOfNow() {
    const CivilTime now = GregorianCalendar(TimeZone::forSecondsFromGMT(0)).fieldsOfDate(Date::now());
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02} +0000", now.year, now.month, now.day, now.hour, now.minute,
                       now.second);
}

} // namespace

MSPEMapper::MSPEMapper(std::shared_ptr<XMLDocument> zelbXmlDoc, std::shared_ptr<XMLDocument> zelbTOCXmlDoc,
                       std::vector<std::shared_ptr<XMLDocument>> baselines, const std::optional<FileURL>& templateUrl,
                       bool keepsSource)
    : _zelbXmlDoc(std::move(zelbXmlDoc)), _zelbTOCXmlDoc(std::move(zelbTOCXmlDoc)),
      _zelbBaselines(std::make_move_iterator(baselines.begin()), std::make_move_iterator(baselines.end())),
      _keepsSource(keepsSource), _calendarMapper(std::make_unique<MSPECalendarMapper>(this)) {
    // Must come first: it logs the zone when the process creates its first coordinator.
    MSPCDateTimeConverter::initialize();
    counters = Counters{};
    _mppVersion = formatOfTemplate(templateUrl);
}

MSPEMapper::~MSPEMapper() = default;

void MSPEMapper::map() {
    _notMappedReason = faultOfRoot();
    if (!_notMappedReason.empty())
        return;

    // Limits the project mapper's published data to the mapping, however it ends.
    struct ProjectMapperScope {
        std::unique_ptr<MSPEProjectMapper>& projectMapper;
        ~ProjectMapperScope() { projectMapper.reset(); }
    };
    _projectMapper = std::make_unique<MSPEProjectMapper>(this, _zelbXmlDoc->rootElement());
    const ProjectMapperScope scope{_projectMapper};

    const auto project = _projectMapper->newProjectFromZELBScenario();
    _mspdiXmlDoc = MSPEXMLDocumentAdapter::documentWithRootElement(project);
    project->addComment(fmt::format("  {}: Tarnwick {} MSPDI Exporter.  ", descriptionOfNow(), kApplicationVersion));
}

// Why the main document is not a scenario of the source format; empty if it is one.
std::string MSPEMapper::faultOfRoot() const {
    if (!_zelbXmlDoc)
        return "The bundle has no scenario with the id of the one that is being edited.";
    const XMLElement root = _zelbXmlDoc->rootElement();
    if (root.name() != kScenario)
        return fmt::format("The root element of the scenario is '{}', not '{}'.", root.name(), kScenario);
    const auto namespaces = root.namespaces();
    if (namespaces.size() != 1)
        return fmt::format("The root element of the scenario declares {} namespaces instead of one: '{}'.",
                           namespaces.size(), fmt::join(namespaces, "', '"));
    if (!isSourceNamespace(namespaces.front()))
        return fmt::format("The namespace of the scenario is '{}': its path is not '{}'.", namespaces.front(),
                           kNamespacePath);
    return {};
}

bool MSPEMapper::isWorthAHelper(std::size_t tasks) const noexcept {
    return _threads > 1 && tasks >= kTasksWorthAHelper;
}

void MSPEMapper::setMspdiProject(std::shared_ptr<MSPEXMLProjectAdapter> project) {
    _growing.own().project = std::move(project);
}

void MSPEMapper::setIdMapper(std::unique_ptr<MSPEIdMapper> idMapper) { _idMapper = std::move(idMapper); }

void MSPEMapper::addConstraint(std::shared_ptr<MPPConstraint> constraint) {
    _growing.own().constraints.push_back(std::move(constraint));
}

MSPEMapper::Constraints MSPEMapper::takeConstraints() noexcept { return std::exchange(_growing.own().constraints, {}); }

std::int64_t MSPEMapper::nextTaskID() { return counters.taskID++; }
std::int64_t MSPEMapper::nextResourceID() { return counters.resourceID++; }
std::int64_t MSPEMapper::nextAssignmentUID() { return counters.assignmentUID++; }
std::int64_t MSPEMapper::nextCalendarUID() { return counters.calendarUID++; }

void MSPEMapper::continueWith(std::int64_t taskID, std::int64_t assignmentUID) noexcept {
    counters.taskID = taskID;
    counters.assignmentUID = assignmentUID;
}

} // namespace brackwater
