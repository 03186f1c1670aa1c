#include "MPPXMLDOMFilter/Corrections/Corrections.h"

#include "MPPXMLDOMFilter/Corrections/SheetPositions.h"

namespace brackwater {

// The order counts where a pass reads what another one sets.
void applyCorrections(MPPProject& project) { correctSheetPositions(project); }

} // namespace brackwater
