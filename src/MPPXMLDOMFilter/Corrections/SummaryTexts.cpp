#include "MPPXMLDOMFilter/Corrections/SummaryTexts.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

void correctSummaryTexts(MPPProject& project) {
    if (project.summaryInfo)
        project.summaryInfo->texts = MPPSummaryTexts::Standard;
}

} // namespace brackwater
