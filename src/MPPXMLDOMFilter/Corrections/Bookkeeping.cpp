#include "MPPXMLDOMFilter/Corrections/Bookkeeping.h"

#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

void keepBookkeeping(MPPProject& project) {
    project.bookkeeping = std::make_unique<MPPBookkeeping>();
    for (const auto& resource : project.resources)
        if (const MPPCalendar* calendar = resource->calendar.record())
            resource->calendarID = calendar->ID;
}

void keepTemplateViews(MPPProject& project) { project.keepsTemplateViews = true; }

} // namespace brackwater
