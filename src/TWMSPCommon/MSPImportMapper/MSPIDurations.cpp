// Conversions of durations, and of times of day to seconds.

#include "Platform/Text/TextReadings.h"
#include "Platform/Values/Exception.h"
#include "Platform/Values/Saturating.h"
#include "TWMSPCommon/MSPImportMapper/IsoScanner.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <algorithm>
#include <limits>

namespace brackwater {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast32Bits = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kMost32Bits = std::numeric_limits<std::int32_t>::max();

/// Sum and product of non-negative numbers, saturated.
std::int64_t saturatedProduct(std::int64_t a, std::int64_t b) { return a > kMost / b ? kMost : a * b; }
std::int64_t saturatedSum(std::int64_t a, std::int64_t b) { return a > kMost - b ? kMost : a + b; }

/// Hours, minutes and seconds; missing ones count as 0.
std::int64_t secondsOf(std::int64_t hours, std::int64_t minutes, std::int64_t seconds) {
    return saturatedSum(saturatedSum(saturatedProduct(hours, 3600), saturatedProduct(minutes, 60)), seconds);
}
std::int64_t secondsOf(const MSPCDateComponents& read) {
    return secondsOf(read.hour.value_or(0), read.minute.value_or(0), read.second.value_or(0));
}

std::string mspdiDuration(std::int32_t value) {
    const std::int32_t seconds = value % 60;
    const std::int32_t totalMinutes = (value - seconds) / 60;
    return fmt::format(FMT_COMPILE("PT{}H{}M{}S"), totalMinutes / 60, totalMinutes % 60, seconds);
}

} // namespace

std::optional<std::string> MSPIUtilities::mspdiToZelbTimeOnly(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    MSPCDateComponents components;
    assertThat(updateDateTimeComponentsFromISODateTime(components, text) != NSNotFound,
               "Failed to get time only value from MSPDI date-time: '{}'.", text);
    return fmt::format("{}", secondsOf(components));
}

std::int64_t MSPIUtilities::mspdiDurationInSecs(std::string_view text) {
    if (text.empty())
        return -1;
    // Both scanners agree on the format of nearly all durations.
    if (const auto strict = iso::scanStrictDuration(text); strict && strict->whole.size() == text.size())
        return secondsOf(iso::numberOf(strict->hours), iso::numberOf(strict->minutes), iso::numberOf(strict->seconds));
    MSPCDateComponents components;
    assertThat(updateDateTimeComponentsFromISODuration(components, text) != NSNotFound,
               "Failed to convert MSPDI duration: '{}'.", text);
    return secondsOf(components);
}

std::optional<std::string> MSPIUtilities::mspdiToZelbDuration(std::string_view text) {
    const std::int64_t seconds = mspdiDurationInSecs(text);
    if (seconds < 0)
        return std::nullopt;
    return fmt::format("{}", seconds);
}

double MSPIUtilities::mspdiToMppDuration(std::string_view text) {
    const auto match = iso::scanStrictDuration(text);
    if (!match)
        return 0.0;
    const auto value = [](std::string_view digits) { return std::min(iso::numberOf(digits), kMost32Bits); };
    const std::int64_t seconds = value(match->hours) * 3600 + value(match->minutes) * 60 + value(match->seconds);
    return static_cast<double>(seconds);
}

std::string MSPIUtilities::mppToZelbDuration(double seconds) { return fmt::format("{:.2f}", seconds); }

std::string MSPIUtilities::mppToMspdiDuration(double seconds) {
    return mspdiDuration(saturatingCut<std::int32_t>(seconds));
}

std::optional<std::string> MSPIUtilities::zelbToMspdiDuration(std::optional<std::string_view> text) {
    if (!text)
        return std::nullopt;
    return mspdiDuration(static_cast<std::int32_t>(std::clamp(integerValue(*text), kLeast32Bits, kMost32Bits)));
}

std::string MSPIUtilities::hourMinSecFromDuration(double seconds) {
    const auto value = saturatingCut<std::int64_t>(seconds);
    return fmt::format(FMT_COMPILE("{:02}:{:02}:{:02}"), value / 3600, value % 3600 / 60, value % 60);
}

} // namespace brackwater
