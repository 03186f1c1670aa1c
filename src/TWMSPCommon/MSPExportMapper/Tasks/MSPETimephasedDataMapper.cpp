#include "TWMSPCommon/MSPExportMapper/Tasks/MSPETimephasedDataMapper.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLTimephasedDataAdapter.h"
#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPCExtensions.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <algorithm>

namespace brackwater {

std::optional<MSPETimephasedDataArray>
MSPETimephasedDataMapper::newTimephasedDataFromZelbSplitTask(XMLElement zelbTask, XMLElement zelbScenario) {
    if (!singleObjectForXQuery(zelbTask, "split"))
        return std::nullopt;

    const auto references = zelbTask.objectsForXQuery("child-task");
    _splitCount = static_cast<std::int64_t>(references.size());

    MSPETimephasedDataArray array;
    std::optional<std::string> previousEnd;
    for (const XMLElement reference : references) {
        const auto id = reference.attributeView("idref").value_or("");
        const auto segment = singleObjectForXQuery(zelbScenario, XMLQuery::childWithValue("task", "id", id));
        if (!segment)
            continue;
        const std::string start = stringValueForXQuery(*segment, "start-date").value_or("");
        std::string end = stringValueForXQuery(*segment, "end-date").value_or("");
        const double effort = floatValueForXQuery(*segment, "effort");

        if (previousEnd)
            MSPETimephasedDataInfo(*previousEnd, start, MSPETimephasedDataInfo::kNoEffort, mapper())
                .addTimephasedDataToArray(array, nullptr);
        MSPETimephasedDataInfo(start, end, effort, mapper()).addTimephasedDataToArray(array, nullptr);
        previousEnd = std::move(end);
    }
    return array;
}

std::optional<MSPETimephasedDataArray>
MSPETimephasedDataMapper::newTimephasedDataFromAssignment([[maybe_unused]] XMLElement zelbAssignment,
                                                          XMLElement zelbResource, std::string_view start,
                                                          std::string_view finish, double consumption) const {
    if (stringValueForXQuery(zelbResource, "type") != "Material")
        return std::nullopt;

    MSPETimephasedDataArray array;
    std::vector<bool> workingDays;
    MSPETimephasedDataInfo(start, finish, MSPETimephasedDataInfo::kNoEffort, mapper())
        .addTimephasedDataToArray(array, &workingDays);
    assertThat(array.size() == workingDays.size(), "TimephasedData array and WorkingDays array have different size.");
    if (array.empty())
        return std::nullopt;

    const auto workingCount = std::count(workingDays.begin(), workingDays.end(), true);
    const double daily = workingCount > 0 ? consumption / static_cast<double>(workingCount) : 0.0;
    const std::string value = MSPIUtilities::mppToMspdiDuration(daily);
    for (std::size_t i = 0; i < array.size(); ++i) {
        if (workingDays[i])
            array[i]->addChildElementWithName("Value", value);
        else
            array[i]->addChildElementWithName("Value");
    }
    return array;
}

} // namespace brackwater
