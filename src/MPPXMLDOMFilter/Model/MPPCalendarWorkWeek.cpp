#include "MPPXMLDOMFilter/Model/MPPCalendarWorkWeek.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater {

bool MPPCalendarWorkWeek::definesAnyDay() const noexcept {
    const auto lists = days();
    return std::any_of(lists.begin(), lists.end(), [](const MPPDayRanges* day) { return *day != nullptr; });
}

std::string MPPCalendarWorkWeek::description() const {
    static constexpr std::array kDayNames = {"sunday",   "monday", "tuesday", "wednesday",
                                             "thursday", "friday", "saturday"};
    std::string text = fmt::format("<MPPCalendarWorkWeek>: name='{}'", name.value_or("(null)"));
    const auto lists = days();
    for (std::size_t i = 0; i < lists.size(); ++i)
        text += fmt::format("\n    {}: {}", kDayNames[i], descriptionOfRanges(lists[i]->get()));
    return text;
}

} // namespace brackwater
