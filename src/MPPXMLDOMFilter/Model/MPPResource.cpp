#include "MPPXMLDOMFilter/Model/MPPResource.h"

#include <fmt/compile.h>

namespace brackwater {

bool MPPResource::hasCustomFieldText(std::size_t position) const {
    return position >= 1 && position <= customFieldsText.size() && !customFieldsText[position - 1].empty();
}

std::string MPPResource::description() const {
    const char* word = _type == 0 ? "Work" : _type == 1 ? "Material" : "unknown";
    const auto calendarRecord = calendar.pointer();
    return fmt::format(FMT_COMPILE("<MPPResource>: ID={} name=\"{}\" group=\"{}\" type={} ({}) calendar: {}"), ID,
                       name.value_or("(null)"), group.value_or("(null)"), _type, word,
                       calendarRecord ? fmt::format(FMT_COMPILE("ID={}"), calendarRecord->ID) : "<null>");
}

} // namespace brackwater
