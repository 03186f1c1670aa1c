#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"

#include <cstdint>

namespace brackwater {

/// What the three "Baseline" elements share: the number, which stays in the adapter.
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

} // namespace brackwater
