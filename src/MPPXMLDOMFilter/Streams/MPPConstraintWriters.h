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

/// Writes "TBkndCons" of the 2007 layout, the folder "   112": a lag is in tenths of a minute already.
class MPP12ConstraintWriter : public MPPConstraintStreamWriter {
public:
    using MPPConstraintStreamWriter::MPPConstraintStreamWriter;

protected:
    /// "Props" of the template goes along.
    void writeSteps() override;
    [[nodiscard]] double lagInSeconds(double lag) const override { return lag * 6.0; }
};

/// Writes "TBkndCons" of the 2010 layout, the folder "   114": a lag counts as seconds, and there is no "Props".
class MPP14ConstraintWriter : public MPPConstraintStreamWriter {
public:
    using MPPConstraintStreamWriter::MPPConstraintStreamWriter;

protected:
    [[nodiscard]] double lagInSeconds(double lag) const override { return lag; }
};

} // namespace brackwater
