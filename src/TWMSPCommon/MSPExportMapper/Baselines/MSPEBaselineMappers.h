#pragma once

#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"
#include "Platform/Xml/XMLElement.h"
#include "TWMSPCommon/MSPExportMapper/Baselines/MSPEBaseline.h"
#include "TWMSPCommon/MSPExportMapper/Common/MSPEObjectMapperBase.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace brackwater {

/// Base of the mappers of one baseline's records: the baseline and its number.
class MSPEBaselineMapperBase : public MSPEObjectMapperBase {
public:
    /// Raises if the coordinator has no baseline with that number.
    MSPEBaselineMapperBase(std::size_t baselineNumber, MSPEMapper* mapper);

    [[nodiscard]] std::int64_t baselineNumber() const noexcept { return _baselineNumber; }

protected:
    ~MSPEBaselineMapperBase() = default;

    [[nodiscard]] const MSPEBaseline& baseline() const;
    /// A "Baseline" element with its first child, "Number".
    template <typename Adapter>
    [[nodiscard]] std::shared_ptr<Adapter> newNumberedBaseline() const {
        auto element = std::make_shared<Adapter>("Baseline", mapper());
        element->addChildElementWithName("Number", std::to_string(_baselineNumber));
        return element;
    }

private:
    std::int64_t _baselineNumber;
};

class MSPEXMLTaskBaselineAdapter;

/// The dates, duration, work and cost of a task in a baseline.
class MSPETaskBaselineMapper final : public MSPEBaselineMapperBase {
public:
    using MSPEBaselineMapperBase::MSPEBaselineMapperBase;

    /// From the task's element in the main document; null if the baseline lacks it. If sources are kept, `source` gets
    /// the first baseline's values of the task.
    [[nodiscard]] std::shared_ptr<MSPEXMLTaskBaselineAdapter>
    newBaselineFromZelbTask(XMLElement zelbTask, std::optional<MPPSourceTaskBaseline>& source) const;
};

class MSPEXMLResourceBaselineAdapter;

/// Whether a baseline has a resource; nothing else is mapped.
class MSPEResourceBaselineMapper final : public MSPEBaselineMapperBase {
public:
    using MSPEBaselineMapperBase::MSPEBaselineMapperBase;

    /// From the resource's element in the main document; null if the baseline lacks it.
    [[nodiscard]] std::shared_ptr<MSPEXMLResourceBaselineAdapter>
    newBaselineFromZelbResource(XMLElement zelbResource) const;
};

class MSPEXMLAssignmentBaselineAdapter;

/// Whether a baseline has a resource on a task; nothing else is mapped.
class MSPEAssignmentBaselineMapper final : public MSPEBaselineMapperBase {
public:
    using MSPEBaselineMapperBase::MSPEBaselineMapperBase;

    /// From the assignment's element in the main document; null if the baseline lacks it.
    [[nodiscard]] std::shared_ptr<MSPEXMLAssignmentBaselineAdapter>
    newBaselineFromZelbAssignment(XMLElement zelbAssignment) const;
};

} // namespace brackwater
