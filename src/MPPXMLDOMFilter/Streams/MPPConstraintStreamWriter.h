#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPFixedData.h"
#include "MPPXMLDOMFilter/Streams/MPPStreamWriter.h"

#include <cstdint>
#include <memory>

namespace brackwater {

/// What the 2007 and the 2010 layout of "TBkndCons" share: the links between tasks in list order. "VarMeta" is the
/// template's.
class MPPConstraintStreamWriter : public MPPStreamWriter {
public:
    using MPPStreamWriter::MPPStreamWriter;

protected:
    /// "VarMeta" and the four fixed streams.
    void writeSteps() override;

    /// What the layout takes for the seconds of a lag that is a time.
    [[nodiscard]] virtual double lagInSeconds(double lag) const = 0;

private:
    void writeFixedData();
    void writeFixedMeta();
    void writeFixed2Data();
    void writeFixed2Meta();
    void writeConstraintFixedData(const MPPConstraint& constraint);

    std::shared_ptr<MPPFixedData> _fixedData = std::make_shared<MPPFixedData>();
    std::shared_ptr<MPPFixedData> _fixed2Data = std::make_shared<MPPFixedData>();
};

} // namespace brackwater
