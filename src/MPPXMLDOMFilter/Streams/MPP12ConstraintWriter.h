#pragma once

#include "MPPXMLDOMFilter/Streams/MPPConstraintStreamWriter.h"

namespace brackwater {

/// Writes "TBkndCons" of the 2007 layout, the folder "   112": a lag is in tenths of a minute already.
class MPP12ConstraintWriter : public MPPConstraintStreamWriter {
public:
    using MPPConstraintStreamWriter::MPPConstraintStreamWriter;

protected:
    /// "Props" of the template goes along.
    void writeSteps() override;
    [[nodiscard]] double lagInSeconds(double lag) const override { return lag * 6.0; }
};

} // namespace brackwater
