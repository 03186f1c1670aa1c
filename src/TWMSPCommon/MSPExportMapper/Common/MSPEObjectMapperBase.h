#pragma once

namespace brackwater {

class MSPEMapper;

/// Base of the sub-mappers: each accesses documents, counters and the other sub-mappers through the coordinator.
class MSPEObjectMapperBase {
public:
    /// `mapper` must outlive the object.
    explicit MSPEObjectMapperBase(MSPEMapper* mapper) noexcept : _mapper(mapper) {}

    [[nodiscard]] MSPEMapper* mapper() const noexcept { return _mapper; }

protected:
    // Sub-mappers are owned by their own type; none is deleted through this base.
    ~MSPEObjectMapperBase() = default;

private:
    MSPEMapper* _mapper;
};

} // namespace brackwater
