#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETaskDates.h"

#include "TWMSPCommon/MSPExportMapper/Tasks/MSPEScheduledTaskInfo.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

namespace brackwater {

namespace {

std::optional<std::string> mspdiFromZelb(const std::optional<std::string>& zelb) {
    return zelb ? MSPIUtilities::zelbToMspdiDateTime(*zelb) : std::nullopt;
}

} // namespace

MSPETaskDates::MSPETaskDates(const MSPEScheduledTaskInfo& info)
    : zelbStart(MSPIUtilities::mppToZelbDateTime(info.startDate())),
      zelbFinish(MSPIUtilities::mppToZelbDateTime(info.endDate())), mspdiStart(mspdiFromZelb(zelbStart)),
      mspdiFinish(mspdiFromZelb(zelbFinish)) {}

std::optional<std::string> mspdiTextOfDate(std::optional<Date> date) {
    return mspdiFromZelb(MSPIUtilities::mppToZelbDateTime(date));
}

} // namespace brackwater
