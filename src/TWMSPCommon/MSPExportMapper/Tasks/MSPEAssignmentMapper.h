#pragma once

#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"
#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataInfo.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

class MSPEProjectMapper;
class MSPEScheduledTaskInfo;
class MSPEXMLAssignmentAdapter;

/// Builds the "Assignment" elements of one task. The source has only a resource and its units; the mapper divides the
/// task's effort among the resources of each kind. Material has a quantity instead of a share.
class MSPEAssignmentMapper final : public MSPEObjectMapperBase {
public:
    enum class ResourceKind { Staff, Equipment, Material, Group, Other };

    /// An assignment of the task with its resource.
    struct ZelbAssignment {
        XMLElement element;
        XMLElement resource;
        ResourceKind kind;
        double units;
    };

    /// Parses all assignments of the task and sums their units. Raises if one has no known resource, or one without a
    /// type.
    MSPEAssignmentMapper(MSPEMapper* mapper, XMLElement zelbTask);

    /// The task's assignments in document order.
    [[nodiscard]] const std::vector<ZelbAssignment>& zelbAssignments() const noexcept { return _zelbAssignments; }
    /// One of them as an element.
    [[nodiscard]] std::shared_ptr<MSPEXMLAssignmentAdapter>
    newAssignmentFromZELBAssignment(const ZelbAssignment& assignment);
    /// The UID of the last assignment created.
    [[nodiscard]] std::int64_t UID() const noexcept { return _UID; }

    /// Work of an unassigned task. Its UID goes to `assignmentUID` (may be null).
    [[nodiscard]] static std::shared_ptr<MSPEXMLAssignmentAdapter>
    newDummyAssignmentForTaskId(std::string_view taskId, std::int64_t* assignmentUID, MSPEMapper* mapper);

    /// Inserts the assignment's UID at the start of each element and attaches the elements to the assignment.
    static void addTimephasedData(const MSPETimephasedDataArray& timephasedData, std::int64_t assignmentUID,
                                  MSPEXMLAssignmentAdapter& assignment);

private:
    static constexpr std::size_t kKinds = 5;

    [[nodiscard]] ZelbAssignment readAssignment(XMLElement element) const;
    [[nodiscard]] double workOf(const ZelbAssignment& assignment, double effort) const;
    void addBaselines(const ZelbAssignment& assignment, MSPEXMLAssignmentAdapter& element) const;
    void addMaterial(const ZelbAssignment& assignment, const MSPEScheduledTaskInfo& info, double work,
                     MSPEXMLAssignmentAdapter& element);

    MSPEProjectMapper& _projectMapper;
    std::int64_t _UID = -1;
    std::string _zelbTaskId;
    std::array<double, kKinds> _unitsOfKind{};
    std::size_t _materialDays = 0; ///< of all assignments so far
    std::vector<ZelbAssignment> _zelbAssignments;
};

} // namespace brackwater
