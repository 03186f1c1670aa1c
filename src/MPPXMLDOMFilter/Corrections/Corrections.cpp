#include "MPPXMLDOMFilter/Corrections/Corrections.h"

#include "MPPXMLDOMFilter/Corrections/AssignmentIndex.h"
#include "MPPXMLDOMFilter/Corrections/AssignmentWork.h"
#include "MPPXMLDOMFilter/Corrections/BaseCalendars.h"
#include "MPPXMLDOMFilter/Corrections/Baselines.h"
#include "MPPXMLDOMFilter/Corrections/Bookkeeping.h"
#include "MPPXMLDOMFilter/Corrections/CalendarHours.h"
#include "MPPXMLDOMFilter/Corrections/Costs.h"
#include "MPPXMLDOMFilter/Corrections/CriticalPath.h"
#include "MPPXMLDOMFilter/Corrections/CustomFields.h"
#include "MPPXMLDOMFilter/Corrections/DateBounds.h"
#include "MPPXMLDOMFilter/Corrections/GuidOrder.h"
#include "MPPXMLDOMFilter/Corrections/Progress.h"
#include "MPPXMLDOMFilter/Corrections/ResourceInitials.h"
#include "MPPXMLDOMFilter/Corrections/RtfNotes.h"
#include "MPPXMLDOMFilter/Corrections/SheetPositions.h"
#include "MPPXMLDOMFilter/Corrections/SplitTasks.h"
#include "MPPXMLDOMFilter/Corrections/StandardWeek.h"
#include "MPPXMLDOMFilter/Corrections/SummaryTexts.h"
#include "MPPXMLDOMFilter/Corrections/SummaryTotals.h"
#include "MPPXMLDOMFilter/Corrections/TaskSettings.h"
#include "MPPXMLDOMFilter/Corrections/TopTask.h"

namespace brackwater {

// The order matters if a pass reads what another one sets.
void applyCorrections(MPPProject& project) {
    keepTopTask(project);
    composeNotes(project);
    numberCustomFields(project);
    addResourceInitials(project);
    correctDefaultCalendarBase(project);
    nameBaseCalendars(project);
    correctCalendarHours(project);
    correctMinutesPerDay(project);
    correctSheetPositions(project);
    markSplitTasks(project);
    correctSummaryMarks(project);
    correctTaskSettings(project);
    const AssignmentIndex assignments(project);
    correctWork(project, assignments);
    correctProgress(project, assignments);
    spreadWork(project);
    correctCosts(project, assignments);
    correctBaselines(project, assignments);
    correctSummaryTotals(project);
    correctResourceTotals(project);
    // Applies to all records, whichever pass has set their fields.
    dropDatesOutsideFormat(project);
    // Among dates of the format, and so are its own: none is later than the last finish.
    findCriticalPath(project, assignments);
    numberCalendarExceptions(project);
    correctGuidOrder(project);
    correctSummaryTexts(project);
    keepBookkeeping(project);
    keepTemplateViews(project);
}

} // namespace brackwater
