#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

namespace {
// GUID of the record of work without a resource and of its calendar: a constant of the format.
constexpr Guid kDefaultResourceGuid{
    Guid::Bytes{0x7E, 0x8B, 0xCB, 0xA0, 0x8C, 0x2A, 0x6D, 0x43, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xFF}};
} // namespace

MPPProject::MPPProject()
    : standardCalendar(std::make_shared<MPPCalendar>()), summaryInfo(std::make_shared<MPPSummaryInformation>()) {
    taskType = 1;

    standardCalendar->name = "Standard";

    auto defaultCalendar = std::make_shared<MPPCalendar>(kDefaultResourceGuid);
    defaultCalendar->ID = 1;
    defaultCalendar->baseCalendar.setRecord(standardCalendar);
    _defaultResource = std::make_shared<MPPResource>(kDefaultResourceGuid);
    _defaultResource->calendar.setRecord(std::move(defaultCalendar));
}

const std::unordered_set<std::uint32_t>& MPPProject::assignmentIDsSet() const {
    if (!_assignmentIDsSet) {
        _assignmentIDsSet.emplace();
        for (const auto& assignment : assignments)
            _assignmentIDsSet->insert(static_cast<std::uint32_t>(assignment->ID));
    }
    return *_assignmentIDsSet;
}

const std::unordered_map<std::uint32_t, MPPAssignment*>& MPPProject::idToAssignmentMap() const {
    if (!_idToAssignmentMap) {
        _idToAssignmentMap.emplace();
        for (const auto& assignment : assignments)
            _idToAssignmentMap->insert_or_assign(static_cast<std::uint32_t>(assignment->ID), assignment.get());
    }
    return *_idToAssignmentMap;
}

std::string MPPProject::description() const { return descriptionAs("<MPPProject>"); }

} // namespace brackwater
