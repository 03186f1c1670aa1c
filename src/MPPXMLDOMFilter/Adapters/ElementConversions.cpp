#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"

#include "Platform/Text/TextReadings.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

namespace brackwater::conversions {

namespace {

constexpr std::int64_t kSecondsPerHour = 3600;

std::string_view orEmpty(ElementText text) noexcept { return text.value_or(std::string_view()); }

} // namespace

std::optional<std::string> text(ElementText text) {
    return text ? std::optional<std::string>(std::in_place, *text) : std::nullopt;
}

std::int64_t integer(ElementText text) noexcept { return integerValue(orEmpty(text)); }

std::int32_t int32(ElementText text) noexcept { return intValue(orEmpty(text)); }

double number(ElementText text) noexcept { return doubleValue(orEmpty(text)); }

bool boolean(ElementText text) noexcept { return boolValue(orEmpty(text)); }

std::optional<Date> date(ElementText text) { return MSPIUtilities::mspdiToMppDateTime(orEmpty(text)); }

double duration(ElementText text) { return MSPIUtilities::mspdiToMppDuration(orEmpty(text)); }

double wholeHours(ElementText text) {
    const auto hours = MSPIUtilities::mspdiDurationInSecs(orEmpty(text)) / kSecondsPerHour;
    return static_cast<double>(hours);
}

std::string_view shown(ElementText text) noexcept { return text.value_or("(null)"); }

} // namespace brackwater::conversions
