#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEChildReferences.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataInfo.h"

#include <optional>
#include <vector>

namespace brackwater {

class MSPEXMLAdapter;
class MSPEXMLAssignmentAdapter;

/// The task pass of a project: maps the task tree depth first, each task with its assignments, to any depth; fails on
/// cycles, which repeat a UID.
class MSPETaskTreeWalk final : public MSPEObjectMapperBase {
public:
    /// `tasks` and `assignments` are the collections that take the elements.
    MSPETaskTreeWalk(MSPEMapper* mapper, XMLElement zelbScenario, MSPEXMLAdapter& tasks, MSPEXMLAdapter& assignments)
        : MSPEObjectMapperBase(mapper), _scenario(zelbScenario), _tasks(tasks), _assignments(assignments) {}

    /// A missing top task fails like one without an id.
    void walkFrom(std::optional<XMLElement> topTask);

private:
    // A group whose children are being mapped.
    struct Group {
        XMLElement element;
        MSPEChildReferences children;
    };
    using TimephasedData = std::optional<MSPETimephasedDataArray>;

    void mapTask(std::optional<XMLElement> task);
    void addAssignments(XMLElement task, const TimephasedData& timephasedData);
    void addDummyAssignment(XMLElement task, const TimephasedData& timephasedData);

    XMLElement _scenario;
    MSPEXMLAdapter& _tasks;
    MSPEXMLAdapter& _assignments;
    std::vector<Group> _groups;
};

} // namespace brackwater
