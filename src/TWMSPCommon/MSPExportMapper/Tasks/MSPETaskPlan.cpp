#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskPlan.h"

#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildElements.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildReferences.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEIdMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEProjectMapper.h"

namespace brackwater {

namespace {

enum class Child : std::size_t { Type, Split, Assignment };

constexpr NameTable kChildNames(std::array<std::string_view, 3>{"type", "split", "assignment"});

using Children = MSPEChildElements<Child, kChildNames.size()>;

class Planner {
public:
    Planner(MSPEMapper* mapper, XMLElement scenario)
        : _mapper(mapper), _projectMapper(MSPEProjectMapper::ofMapper(mapper)), _scenario(scenario) {}

    std::vector<MSPEPlannedTask> tasksFrom(std::optional<XMLElement> topTask) {
        _tasks.reserve(_projectMapper.scheduledTasks().size());
        bool canGoOn = add(topTask);
        while (canGoOn && !_groups.empty()) {
            if (const auto child = _groups.back().children.nextChild())
                canGoOn = add(child);
            else
                _groups.pop_back();
        }
        return std::move(_tasks);
    }

private:
    // A group whose children are being added.
    struct Group {
        XMLElement element;
        MSPEChildReferences children;
    };

    bool add(std::optional<XMLElement> element) {
        MSPEPlannedTask& task = _tasks.emplace_back();
        task.element = element;
        task.level = _groups.size();
        task.assignmentUID = _assignmentUID;
        if (!_groups.empty())
            task.parent = _groups.back().element;
        if (!element)
            return false;
        readChildren(*element, task);
        if (task.isGroup && task.isSplit)
            return false;
        if (task.isGroup)
            _groups.push_back({*element, {_scenario, *element, "child-task", "task"}});
        const bool isWithoutAssignment = task.numberOfAssignments == 0 && !task.isGroup;
        _assignmentUID += isWithoutAssignment ? 1 : static_cast<std::int64_t>(task.numberOfAssignments);
        return registerUID(*element);
    }

    static void readChildren(XMLElement element, MSPEPlannedTask& task) {
        const Children children(element, kChildNames);
        task.isGroup = children.text(Child::Type) == "group";
        task.isSplit = children.has(Child::Split);
        task.numberOfAssignments = children.count(Child::Assignment);
    }

    bool registerUID(XMLElement element) {
        const auto id = element.attributeView("id");
        return id && MSPEIdMapper::isTaskId(*id) &&
               _projectMapper.registerTask(_mapper->idMapper()->taskUIDFromZelbId(*id),
                                           static_cast<std::int64_t>(_tasks.size()) - 1);
    }

    MSPEMapper* _mapper;
    MSPEProjectMapper& _projectMapper;
    XMLElement _scenario;
    std::vector<Group> _groups;
    std::vector<MSPEPlannedTask> _tasks;
    std::int64_t _assignmentUID = 1;
};

} // namespace

std::vector<MSPEPlannedTask> planTasks(MSPEMapper* mapper, XMLElement zelbScenario, std::optional<XMLElement> topTask) {
    return Planner(mapper, zelbScenario).tasksFrom(topTask);
}

} // namespace brackwater
