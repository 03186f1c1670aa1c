#pragma once

#include "TWMSPCommon/MSPExportMapper/MSPEBaseline.h"
#include "TWMSPCommon/MSPExportMapper/MSPEObjectMapperBase.h"

#include <cstdint>
#include <memory>
#include <string>

namespace brackwater {

/// What the mappers of one baseline's records share: the baseline and its number.
class MSPEBaselineMapperBase : public MSPEObjectMapperBase {
public:
    /// Raises where the coordinator has no baseline of that number.
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

} // namespace brackwater
