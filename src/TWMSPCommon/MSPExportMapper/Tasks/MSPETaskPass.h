#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskPlan.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataInfo.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace brackwater {

class MSPEXMLAdapter;
class MSPEXMLAssignmentAdapter;
struct MPPAssignment;
struct MPPConstraint;
struct MPPExtendedAttribute;
struct MPPTask;

/// The task pass of a project: maps the task tree depth first, each task with its assignments, to any depth; fails on
/// cycles, which repeat a UID. With two threads, a helper maps blocks of tasks ahead, on records of its own that join
/// the project in their turn.
class MSPETaskPass final : public MSPEObjectMapperBase {
public:
    MSPETaskPass(MSPEMapper* mapper, XMLElement zelbScenario) : MSPEObjectMapperBase(mapper), _scenario(zelbScenario) {}

    /// `tasks` and `assignments` are the project's collections, which take the elements. A missing top task fails like
    /// one without an id.
    void mapTasksFrom(std::optional<XMLElement> topTask, MSPEXMLAdapter& tasks, MSPEXMLAdapter& assignments);

private:
    using Plan = std::vector<MSPEPlannedTask>;
    using TimephasedData = std::optional<MSPETimephasedDataArray>;

    // What a block of tasks adds to the project.
    struct Records {
        std::vector<std::shared_ptr<MPPTask>> tasks;
        std::vector<std::shared_ptr<MPPAssignment>> assignments;
        std::vector<std::shared_ptr<const MPPExtendedAttribute>> extendedAttributes;
        std::vector<std::shared_ptr<MPPConstraint>> constraints;
    };

    void mapTasks(const Plan& plan, std::size_t begin, std::size_t end, MSPEXMLAdapter& tasks,
                  MSPEXMLAdapter& assignments) const;
    void mapTask(const MSPEPlannedTask& planned, MSPEXMLAdapter& tasks, MSPEXMLAdapter& assignments) const;
    void addAssignments(XMLElement task, const TimephasedData& timephasedData, MSPEXMLAdapter& assignments) const;
    void addDummyAssignment(XMLElement task, const TimephasedData& timephasedData, MSPEXMLAdapter& assignments) const;
    [[nodiscard]] Records mapAhead(const Plan& plan, std::size_t begin, std::size_t end) const;
    void join(Records records) const;
    void tellProgress(std::size_t mapped) const;

    XMLElement _scenario;
};

} // namespace brackwater
