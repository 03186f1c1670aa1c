#pragma once

#include "MPPXMLDOMFilter/Streams/MPPRowStorageWriter.h"

namespace brackwater {

/// What the 2007 and the 2010 layout of "TBkndCons" share: the links between tasks in list order. "VarMeta" is the
/// template's.
class MPPConstraintStreamWriter : public MPPRowStorageWriter {
public:
    using MPPRowStorageWriter::MPPRowStorageWriter;

protected:
    [[nodiscard]] RowStorageLayout layout() const override;
    void writeFixedData(StreamOutput& stream) override;
    void writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) override;
    void writeFixed2Data(StreamOutput& stream) override;
    void writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) override;

    /// What the layout takes for the seconds of a lag that is a time.
    [[nodiscard]] virtual double lagInSeconds(double lag) const = 0;

private:
    void writeConstraintFixedData(const MPPConstraint& constraint);
};

/// Writes "TBkndCons" of the 2007 layout, the folder "   112": a lag is in tenths of a minute already.
class MPP12ConstraintWriter : public MPPConstraintStreamWriter {
public:
    using MPPConstraintStreamWriter::MPPConstraintStreamWriter;

protected:
    [[nodiscard]] double lagInSeconds(double lag) const override { return lag * 6.0; }
};

/// Writes "TBkndCons" of the 2010 layout, the folder "   114": a lag counts as seconds, and there is no "Props".
class MPP14ConstraintWriter : public MPPConstraintStreamWriter {
public:
    using MPPConstraintStreamWriter::MPPConstraintStreamWriter;

protected:
    void writeProps() override {}
    [[nodiscard]] double lagInSeconds(double lag) const override { return lag; }
};

} // namespace brackwater
