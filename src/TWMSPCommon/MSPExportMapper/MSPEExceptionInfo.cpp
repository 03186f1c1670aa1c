#include "TWMSPCommon/MSPExportMapper/MSPEExceptionInfo.h"

#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <fmt/format.h>

namespace brackwater {

std::string MSPEExceptionInfo::description() const {
    std::string text = fmt::format("<MSPEExceptionInfo>: fromDate={} toDate={} ",
                                   MSPIUtilities::mppToZelbDateTime(_fromDate).value_or("(null)"),
                                   MSPIUtilities::mppToZelbDateTime(_toDate).value_or("(null)"));
    for (const MSPEWorkingTime& workingTime : _workingTimes)
        text += workingTime.description();
    return text;
}

} // namespace brackwater
