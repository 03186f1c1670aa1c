#include "TWMSPCommon/MSPExportMapper/MSPEBaselineMapperBase.h"

#include "Platform/Exception.h"
#include "TWMSPCommon/MSPExportMapper/MSPEMapper.h"

namespace brackwater {

MSPEBaselineMapperBase::MSPEBaselineMapperBase(std::size_t baselineNumber, MSPEMapper* mapper)
    : MSPEObjectMapperBase(mapper), _baselineNumber(static_cast<std::int64_t>(baselineNumber)) {
    const std::size_t count = mapper->zelbBaselines().size();
    assertThat(baselineNumber < count, "Incorrect argument baselineNumber={}. Must be from 0 to {}.", baselineNumber,
               static_cast<std::int64_t>(count) - 1);
}

const MSPEBaseline& MSPEBaselineMapperBase::baseline() const {
    return mapper()->zelbBaselines()[static_cast<std::size_t>(_baselineNumber)];
}

} // namespace brackwater
