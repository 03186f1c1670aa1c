#include "MPPXMLDOMFilter/Streams/MPP12ConstraintWriter.h"

namespace brackwater {

void MPP12ConstraintWriter::writeSteps() {
    MPPConstraintStreamWriter::writeSteps();
    copyChildFromTemplate("Props");
}

} // namespace brackwater
