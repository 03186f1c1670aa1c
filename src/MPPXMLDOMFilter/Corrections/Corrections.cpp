#include "MPPXMLDOMFilter/Corrections/Corrections.h"

#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Corrections/AssignmentWork.h"
#include "MPPXMLDOMFilter/Corrections/Baselines.h"
#include "MPPXMLDOMFilter/Corrections/Costs.h"
#include "MPPXMLDOMFilter/Corrections/Progress.h"
#include "MPPXMLDOMFilter/Corrections/SheetPositions.h"
#include "MPPXMLDOMFilter/Corrections/SummaryTotals.h"
#include "MPPXMLDOMFilter/Corrections/TaskSettings.h"

namespace brackwater {

// The order counts where a pass reads what another one sets.
void applyCorrections(MPPProject& project) {
    correctSheetPositions(project);
    correctSummaryMarks(project);
    correctTaskSettings(project);
    const AssignmentIndex assignments(project);
    correctWork(project, assignments);
    correctProgress(project, assignments);
    correctCosts(project, assignments);
    correctBaselines(project, assignments);
    correctSummaryTotals(project);
    correctResourceTotals(project);
}

} // namespace brackwater
