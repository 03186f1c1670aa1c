#include "MPPXMLDOMFilter/Model/MPPAssignment.h"

#include "MPPXMLDOMFilter/Model/MPPResource.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

template <typename Record>
void appendIdOf(const Record* record, std::string& text) {
    if (record)
        text.append("ID=").append(fmt::format_int(record->ID).c_str());
    else
        text += "<null>";
}

} // namespace

std::string MPPAssignment::description() const {
    std::string text;
    appendDescriptionTo(text);
    return text;
}

void MPPAssignment::appendDescriptionTo(std::string& text) const {
    text.append("<MPPAssignment>: ID=").append(fmt::format_int(ID).c_str()).append(" task: ");
    appendIdOf(task.pointer(), text);
    text += " resource: ";
    appendIdOf(resource.pointer(), text);
}

} // namespace brackwater
