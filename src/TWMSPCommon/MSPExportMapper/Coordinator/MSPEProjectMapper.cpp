#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEProjectMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLCollectionAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLResourceAdapter.h"
#include "Platform/Log/Log.h"
#include "Platform/Threads/BlocksAhead.h"
#include "Platform/Values/Exception.h"
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPExportMapper/Calendars/MSPECalendarMapper.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPECurrencyFormatMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEIdMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEPostProcessor.h"
#include "TWMSPCommon/MSPExportMapper/Resources/MSPEResourceMapper.h"
#include "TWMSPCommon/MSPExportMapper/Resources/MSPEResourceTreeWalk.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskPass.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <algorithm>

namespace brackwater {

namespace {

constexpr std::string_view kYes = "1";
constexpr std::string_view kNo = "0";

std::size_t countOfChildren(XMLElement element, std::string_view name) {
    std::size_t count = 0;
    forEachChildElement(element, name, [&count](XMLElement) { ++count; });
    return count;
}

} // namespace

// The order of the steps is the order of the project's children, and also a requirement: calendars before what refers
// to them, resources before tasks.
std::shared_ptr<MSPEXMLProjectAdapter> MSPEProjectMapper::newProjectFromZELBScenario() {
    _project = std::make_shared<MSPEXMLProjectAdapter>("Project", mapper());
    mapper()->setMspdiProject(_project);
    _project->addNamespace(MSPEXMLProjectAdapter::kNamespaceURI);

    addHeader();
    createIdMapper();
    addDates();
    addCurrency();
    indexTasks();
    findPriorityRange();
    addSettings();

    MSPECalendarMapper& calendarMapper = *mapper()->calendarMapper();
    _project->addChild(calendarMapper.calendars());
    const auto tasks = _project->addChildElementWithName("Tasks");
    const auto resources = _project->addChildElementWithName("Resources");
    const auto assignments = _project->addChildElementWithName("Assignments");

    resources->addChild(MSPEResourceMapper::newDummyResourceWithMapper(mapper()));
    mapResources(*resources);
    calendarMapper.buildCalendarHierarchy();
    mapTasks(*tasks, *assignments);

    MPPProject& project = *_project->mppDomObject();
    MSPEPostProcessor(project, mapper()->constraints(), calendarMapper.calendars()->collection(), _taskUidToIdMap,
                      _resourceUidToIdMap)
        .run();
    project.constraints = mapper()->constraints();
    return std::move(_project);
}

void MSPEProjectMapper::addHeader() {
    Error error;
    const bool fixedEnd = boolAttributeForName(_zelbScenario, "fixed-end", &error);
    _scheduleFromStart = error || !fixedEnd;

    if (const auto title = stringValueForXQuery(mapper()->zelbTOCXmlDoc()->rootElement(), "project/title"))
        _project->addChildElementWithName("Title", *title);
    _project->addChildElementWithName("ScheduleFromStart", _scheduleFromStart ? kYes : kNo);
}

void MSPEProjectMapper::createIdMapper() {
    const auto topResourceId = idOfTopElement("top-resource");
    const auto topTaskId = idOfTopElement("top-task");
    mapper()->setIdMapper(std::make_unique<MSPEIdMapper>(topResourceId, topTaskId));
    _topResourceId = *topResourceId;
    _topTaskId = *topTaskId;
}

std::optional<std::string> MSPEProjectMapper::idOfTopElement(const XMLQuery& query) const {
    const auto element = singleObjectForXQuery(_zelbScenario, query);
    return element ? element->attributeForName("idref") : std::nullopt;
}

void MSPEProjectMapper::addDates() {
    const std::string now = MSPIUtilities::mppToZelbDateTime(Date::now()).value_or("");
    const auto start = stringValueForXQuery(_zelbScenario, "start-date");
    _zelbProjectStartDate = start.value_or(now);
    if (start || _scheduleFromStart)
        _project->addChildElementWithName("StartDate", MSPIUtilities::zelbToMspdiDateTime(_zelbProjectStartDate));

    const auto finish = stringValueForXQuery(_zelbScenario, "end-date");
    _zelbProjectFinishDate = finish.value_or(now);
    if (finish || !_scheduleFromStart)
        _project->addChildElementWithName("FinishDate", MSPIUtilities::zelbToMspdiDateTime(_zelbProjectFinishDate));
}

void MSPEProjectMapper::addCurrency() {
    const MSPECurrencyFormatMapper currency(mapper());
    _project->addChildElementWithName("CurrencyDigits", std::to_string(currency.currencyDigits()));
    _project->addChildElementWithName("CurrencySymbol", currency.currencySymbol());
    _project->addChildElementWithName("CurrencyCode", currency.currencyCode());
    _project->addChildElementWithName("CurrencySymbolPosition", std::to_string(currency.currencySymbolPosition()));
}

void MSPEProjectMapper::indexTasks() {
    std::vector<XMLElement> elements;
    forEachChildElement(_zelbScenario, "task", [&elements](XMLElement element) { elements.push_back(element); });
    _numberOfTasks = elements.size();
    const Blocks blocks(elements.size());
    _taskInfos.resize(blocks.count());
    const auto read = [&](std::size_t block) {
        _taskInfos[block].reserve(blocks.endOf(block) - blocks.beginOf(block));
        for (std::size_t place = blocks.beginOf(block); place < blocks.endOf(block); ++place)
            _taskInfos[block].emplace_back(elements[place]);
    };
    BlocksAhead ahead(blocks, mapper()->isWorthAHelper(elements.size()), read);
    for (std::size_t block = 0; block < blocks.count(); ++block) {
        if (!ahead.take(block))
            read(block);
        for (const MSPEScheduledTaskInfo& info : _taskInfos[block]) {
            // If several tasks have the same id, the last one counts.
            _scheduledTasks.set(info.uid(), &info);
            _hasLinks = _hasLinks || !info.prerequisites().empty();
        }
    }
}

void MSPEProjectMapper::findPriorityRange() {
    for (const auto& entry : _scheduledTasks) {
        _minTaskPriority = std::min(_minTaskPriority, entry.value->priority());
        _maxTaskPriority = std::max(_maxTaskPriority, entry.value->priority());
    }
    assertThat(_minTaskPriority <= _maxTaskPriority,
               "Incorrect values of _minTaskPriortiy ({}) and _maxTaskPriortiy ({})", _minTaskPriority,
               _maxTaskPriority);
}

void MSPEProjectMapper::addSettings() {
    if (_hasLinks)
        _project->addChildElementWithName("HonorConstraints", kYes);
    _project->addChildElementWithName("NewTasksAreManual", kNo);
    _project->addChildElementWithName("CalendarUID", "1");
    _project->addChildElementWithName("WeekStartDay", "0");
    _project->addChildElementWithName("ProjectExternallyEdited", "0");
}

void MSPEProjectMapper::mapResources(MSPEXMLAdapter& resources) {
    const std::size_t count = countOfChildren(_zelbScenario, "resource");
    logLine("Mapping {} Resources and Schedules ...", count);
    mapper()->calendarMapper()->setTopScheduleKey(_topResourceId);
    const auto top = singleObjectForXQuery(_zelbScenario, XMLQuery::childWithValue("resource", "id", _topResourceId));
    MSPEResourceTreeWalk(mapper(), _zelbScenario, resources).walkFrom(top);
}

void MSPEProjectMapper::mapTasks(MSPEXMLAdapter& tasks, MSPEXMLAdapter& assignments) {
    logLine("Mapping {} Tasks ...", _numberOfTasks);
    const auto top = singleObjectForXQuery(_zelbScenario, XMLQuery::childWithValue("task", "id", _topTaskId));
    MSPETaskPass(mapper(), _zelbScenario).mapTasksFrom(top, tasks, assignments);
}

MSPEProjectMapper& MSPEProjectMapper::ofMapper(MSPEMapper* mapper) {
    MSPEProjectMapper* projectMapper = mapper->projectMapper();
    assertThat(projectMapper != nullptr, "Can not get scheduled tasks from project mapper.");
    return *projectMapper;
}

const MSPEScheduledTaskInfo& MSPEProjectMapper::scheduledTaskWithId(std::string_view id) const {
    const MSPEScheduledTaskInfo* const* info = _scheduledTasks.find(id);
    assertThat(info != nullptr, "Can not get scheduled task with id='{}' from the list of scheduled tasks.", id);
    return **info;
}

const MSPETaskDates& MSPEProjectMapper::datesOfTask(const MSPEScheduledTaskInfo& info) {
    DatedTask& last = _datedTask.own();
    if (last.info != &info) {
        last.dates.emplace(info);
        last.info = &info;
    }
    return *last.dates;
}

bool MSPEProjectMapper::registerTask(std::string_view uid, std::int64_t number) {
    if (const std::int64_t* const present = _taskUidToIdMap.find(uid))
        return *present == number;
    return _taskUidToIdMap.tryAdd(uid, number);
}

bool MSPEProjectMapper::registerResource(std::string_view uid, std::int64_t number) {
    return _resourceUidToIdMap.tryAdd(uid, number);
}

} // namespace brackwater
