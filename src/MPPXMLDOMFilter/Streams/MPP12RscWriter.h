#pragma once

#include "MPPXMLDOMFilter/Streams/DateEncoder.h"
#include "MPPXMLDOMFilter/Streams/MPPRowStorageWriter.h"

#include <cstddef>
#include <cstdint>

namespace brackwater {

/// Writes the storage "TBkndRsc": a default row for work without a resource and a row for every resource. All streams
/// but "Props" stay whole in memory until they are written.
class MPP12RscWriter : public MPPRowStorageWriter {
public:
    using MPPRowStorageWriter::MPPRowStorageWriter;

    /// Runs once before any stream is written: drops the first resource with ID 0, whose place is the default row's,
    /// numbers the others from 1 and moves first baselines out.
    static void preprocessProject(MPPProject& project);

    /// Var2Data types by an index counted from 1. They raise UnknownTextFieldException past 30,
    /// UnknownBaselineWorkException and UnknownBaselineCostException past 10.
    [[nodiscard]] static std::uint16_t getTextFieldTypeForIndex(std::size_t index);
    [[nodiscard]] static std::uint16_t getWorkBaselineTypeForIndex(std::size_t index);
    [[nodiscard]] static std::uint16_t getCostBaselineTypeForIndex(std::size_t index);

    /// The upper half of the double n + 1, the place in the resource sheet; 0 for n above 262143.
    [[nodiscard]] static std::uint32_t calculateResourcePositionInResourceSheet(std::int32_t n);

protected:
    [[nodiscard]] RowStorageLayout layout() const override;
    void writeVar2Data(StreamOutput& stream) override;
    void writeVarMeta(MPP12VarMeta& varMeta, StreamOutput& stream) override;
    void writeFixedData(StreamOutput& stream) override;
    void writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) override;
    void writeFixed2Data(StreamOutput& stream) override;
    void writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) override;
    void writeProps() override;

private:
    void writeDefaultFixedData();
    void writeRscFixedData(const MPPResource& resource);
    void writeRscFixed2Data(const MPPResource& resource, std::int32_t place);

    DateEncoder _dates;
};

} // namespace brackwater
