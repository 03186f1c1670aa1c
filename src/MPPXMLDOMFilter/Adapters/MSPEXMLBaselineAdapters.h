#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPAssignment.h"
#include "MPPXMLDOMFilter/Model/MPPResource.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace brackwater {

/// Base of the three "Baseline" elements: the number, which stays in the adapter.
template <typename Record>
class MSPEXMLBaselineAdapter : public MSPEXMLRecordAdapter<Record> {
public:
    using MSPEXMLRecordAdapter<Record>::MSPEXMLRecordAdapter;

    [[nodiscard]] std::int32_t baselineNumber() const noexcept { return _baselineNumber; }

protected:
    void setBaselineNumber(std::int32_t number) noexcept { _baselineNumber = number; }

private:
    std::int32_t _baselineNumber = 0;
};

/// "Baseline" of a task. Its work is in seconds, unlike the work of a task.
class MSPEXMLTaskBaselineAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLTaskBaselineAdapter, MSPEXMLBaselineAdapter<MPPTaskBaseline>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLTaskBaselineAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

/// "Baseline" of a resource: only its number.
class MSPEXMLResourceBaselineAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLResourceBaselineAdapter, MSPEXMLBaselineAdapter<MPPResourceBaseline>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLResourceBaselineAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

/// "Baseline" of an assignment: only its number.
class MSPEXMLAssignmentBaselineAdapter final
    : public MSPEXMLAdapterClass<MSPEXMLAssignmentBaselineAdapter, MSPEXMLBaselineAdapter<MPPAssignmentBaseline>> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLAssignmentBaselineAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;
};

} // namespace brackwater
