#include "TWMSPCommon/MSPExportMapper/MSPEWorkingTime.h"

#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <fmt/format.h>

namespace brackwater {

std::string MSPEWorkingTime::description() const {
    return fmt::format("<MSPEWorkingTime>: [{}-{}] ", MSPIUtilities::hourMinSecFromDuration(_fromTime),
                       MSPIUtilities::hourMinSecFromDuration(_toTime));
}

} // namespace brackwater
