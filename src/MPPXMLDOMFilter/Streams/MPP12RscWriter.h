#pragma once

#include "MPPXMLDOMFilter/Buffers/MPP12VarMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedData.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPVar2Data.h"
#include "MPPXMLDOMFilter/Streams/DateEncoder.h"
#include "MPPXMLDOMFilter/Streams/MPPStreamWriter.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace brackwater {

/// Writes the storage "TBkndRsc": a default row for work without a resource and a row for every resource. All streams
/// but "Props" stay whole in memory until they are written.
class MPP12RscWriter : public MPPStreamWriter {
public:
    using MPPStreamWriter::MPPStreamWriter;

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
    void writeSteps() override;

private:
    void writeVar2Data();
    void writeVarMeta();
    void writeFixedData();
    void writeFixedMeta();
    void writeFixed2Data();
    void writeFixed2Meta();
    void writeProps();

    void writeDefaultFixedData();
    void writeRscFixedData(const MPPResource& resource);
    void writeRscFixed2Data(const MPPResource& resource, std::int32_t place);

    std::shared_ptr<MPPVar2Data> _var2Data = std::make_shared<MPPVar2Data>();
    std::shared_ptr<MPPFixedData> _fixedData = std::make_shared<MPPFixedData>();
    std::shared_ptr<MPPFixedData> _fixed2Data = std::make_shared<MPPFixedData>();
    DateEncoder _dates;
};

} // namespace brackwater
