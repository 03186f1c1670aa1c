#pragma once

#include "MPPXMLDOMFilter/Streams/MPPConstraintStreamWriter.h"

namespace brackwater {

/// Writes "TBkndCons" of the 2010 layout, the folder "   114": a lag counts as seconds, and there is no "Props".
class MPP14ConstraintWriter : public MPPConstraintStreamWriter {
public:
    using MPPConstraintStreamWriter::MPPConstraintStreamWriter;

protected:
    [[nodiscard]] double lagInSeconds(double lag) const override { return lag; }
};

} // namespace brackwater
