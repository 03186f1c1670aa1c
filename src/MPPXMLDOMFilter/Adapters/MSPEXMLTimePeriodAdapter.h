#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "Platform/Date.h"

#include <memory>
#include <optional>
#include <string_view>

namespace brackwater {

/// "TimePeriod": the two dates of an exception or a dated week, which its parent takes. Set them before adding it.
class MSPEXMLTimePeriodAdapter final : public MSPEXMLAdapterClass<MSPEXMLTimePeriodAdapter, MSPEXMLAdapter> {
public:
    static constexpr std::string_view kClassName = "MSPEXMLTimePeriodAdapter";
    using MSPEXMLAdapterClass::MSPEXMLAdapterClass;

    using MSPEXMLAdapter::addChildElementWithName;
    std::shared_ptr<MSPEXMLAdapter> addChildElementWithName(std::string_view name, ElementText stringValue) override;

    [[nodiscard]] const std::optional<Date>& fromDate() const noexcept { return _fromDate; }
    [[nodiscard]] const std::optional<Date>& toDate() const noexcept { return _toDate; }

private:
    std::optional<Date> _fromDate;
    std::optional<Date> _toDate;
};

} // namespace brackwater
