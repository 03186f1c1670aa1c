#include "MPPXMLDOMFilter/Model/MPPAssignment.h"

#include "MPPXMLDOMFilter/Model/MPPResource.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <fmt/format.h>

namespace brackwater {

std::string MPPAssignment::description() const {
    const MPPTask* taskRecord = task.pointer();
    const MPPResource* resourceRecord = resource.pointer();
    return fmt::format("<MPPAssignment>: ID={} task: {} resource: {}", ID,
                       taskRecord ? fmt::format("ID={}", taskRecord->ID) : "<null>",
                       resourceRecord ? fmt::format("ID={}", resourceRecord->ID) : "<null>");
}

} // namespace brackwater
