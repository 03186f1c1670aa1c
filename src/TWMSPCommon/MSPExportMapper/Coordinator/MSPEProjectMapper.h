#pragma once

#include "Platform/Values/PerThread.h"
#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEOrderedMap.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskDates.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

class MSPEXMLAdapter;
class MSPEXMLProjectAdapter;

/// Converts one scenario to the "Project" element and its collections. It determines the order of all passes, and
/// publishes data for the other sub-mappers.
class MSPEProjectMapper final : public MSPEObjectMapperBase {
public:
    using ScheduledTasks = MSPEOrderedMap<std::string_view, const MSPEScheduledTaskInfo*>;
    using UidToIdMap = MSPEOrderedMap<std::string, std::int64_t>;

    MSPEProjectMapper(MSPEMapper* mapper, XMLElement zelbScenario)
        : MSPEObjectMapperBase(mapper), _zelbScenario(zelbScenario) {}
    MSPEProjectMapper(const MSPEProjectMapper&) = delete;
    MSPEProjectMapper& operator=(const MSPEProjectMapper&) = delete;

    /// Maps the whole scenario.
    [[nodiscard]] std::shared_ptr<MSPEXMLProjectAdapter> newProjectFromZELBScenario();

    [[nodiscard]] XMLElement zelbScenario() const noexcept { return _zelbScenario; }
    [[nodiscard]] bool scheduleFromStart() const noexcept { return _scheduleFromStart; }
    /// Source texts.
    [[nodiscard]] const std::string& zelbProjectStartDate() const noexcept { return _zelbProjectStartDate; }
    [[nodiscard]] const std::string& zelbProjectFinishDate() const noexcept { return _zelbProjectFinishDate; }
    /// The range of the document's priorities; it always includes 0.
    [[nodiscard]] std::int64_t minTaskPriority() const noexcept { return _minTaskPriority; }
    [[nodiscard]] std::int64_t maxTaskPriority() const noexcept { return _maxTaskPriority; }
    /// All tasks of the document by raw id, including those outside the trees.
    [[nodiscard]] const ScheduledTasks& scheduledTasks() const noexcept { return _scheduledTasks; }
    [[nodiscard]] const UidToIdMap& taskUidToIdMap() const noexcept { return _taskUidToIdMap; }
    [[nodiscard]] const UidToIdMap& resourceUidToIdMap() const noexcept { return _resourceUidToIdMap; }

    /// The coordinator's project mapper. Raises outside the mapping of a project.
    [[nodiscard]] static MSPEProjectMapper& ofMapper(MSPEMapper* mapper);
    /// Raises if the document has no task with that id.
    [[nodiscard]] const MSPEScheduledTaskInfo& scheduledTaskWithId(std::string_view id) const;
    /// A task's dates as texts. Each thread caches them until its next task: a task's assignments follow the task.
    [[nodiscard]] const MSPETaskDates& datesOfTask(const MSPEScheduledTaskInfo& info);
    /// Both register a UID with its ID; false if the UID is taken. A task may be registered ahead, and then again.
    [[nodiscard]] bool registerTask(std::string_view uid, std::int64_t number);
    [[nodiscard]] bool registerResource(std::string_view uid, std::int64_t number);

private:
    struct DatedTask {
        const MSPEScheduledTaskInfo* info = nullptr;
        std::optional<MSPETaskDates> dates;
    };

    void addHeader();
    void createIdMapper();
    void addDates();
    void addCurrency();
    void indexTasks();
    void findPriorityRange();
    void addSettings();
    void mapResources(MSPEXMLAdapter& resources);
    void mapTasks(MSPEXMLAdapter& tasks, MSPEXMLAdapter& assignments);

    // The id of a tree's root.
    [[nodiscard]] std::optional<std::string> idOfTopElement(const XMLQuery& query) const;

    XMLElement _zelbScenario;
    std::string _topResourceId;
    std::string _topTaskId;
    bool _scheduleFromStart = true;
    std::string _zelbProjectStartDate;
    std::string _zelbProjectFinishDate;
    std::int64_t _minTaskPriority = 0;
    std::int64_t _maxTaskPriority = 0;
    std::size_t _numberOfTasks = 0;
    std::vector<std::vector<MSPEScheduledTaskInfo>> _taskInfos; ///< in blocks
    ScheduledTasks _scheduledTasks;
    UidToIdMap _taskUidToIdMap;
    UidToIdMap _resourceUidToIdMap;

    std::shared_ptr<MSPEXMLProjectAdapter> _project;
    bool _hasLinks = false;
    PerThread<DatedTask> _datedTask;
};

} // namespace brackwater
