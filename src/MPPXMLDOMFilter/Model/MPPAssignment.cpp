#include "MPPXMLDOMFilter/Model/MPPAssignment.h"

#include "MPPXMLDOMFilter/Model/MPPResource.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <fmt/format.h>

namespace brackwater {

namespace {

void appendNumber(std::uint64_t number, std::string& text) {
    const fmt::format_int digits(number);
    text.append(digits.data(), digits.size());
}

template <typename Record>
void appendIdOf(const Record* record, std::string& text) {
    if (record)
        appendNumber(record->ID, text += "ID=");
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
    appendNumber(ID, text += "<MPPAssignment>: ID=");
    text += " task: ";
    appendIdOf(task.pointer(), text);
    text += " resource: ";
    appendIdOf(resource.pointer(), text);
}

} // namespace brackwater
