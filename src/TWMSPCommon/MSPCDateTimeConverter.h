#pragma once

#include "Platform/Time/Date.h"

#include <optional>
#include <string>
#include <string_view>

namespace brackwater {

/// Conversions between date formats with formatter patterns, for the reverse direction: source text with a zone, MSPDI
/// text in local time of the system zone, and instants. Leading and trailing white space and newlines are ignored. An
/// empty or only partly parsable text, or a missing date, gives nothing.
///
/// A source text written here has an offset of three parts, "2012-06-01T09:00:00+02:00:00", or "Z" with `forceUTC`.
class MSPCDateTimeConverter {
public:
    MSPCDateTimeConverter() = delete;

    /// Captures the system zone and logs it, once per process: further calls do nothing.
    static void initialize();

    [[nodiscard]] static std::optional<Date> mppFromZelbDateTime(std::string_view text); ///< also a date alone
    [[nodiscard]] static std::optional<Date> mppFromZelbDateOnly(std::string_view text);
    [[nodiscard]] static std::optional<std::string> mspdiFromZelbDateTime(std::string_view text);
    [[nodiscard]] static std::optional<std::string> mspdiFromZelbDateOnly(std::string_view text);
    [[nodiscard]] static std::optional<Date> mppFromMspdiDateTime(std::string_view text); ///< also a date alone
    [[nodiscard]] static std::optional<Date> mppFromMspdiDateOnly(std::string_view text);
    [[nodiscard]] static std::optional<std::string> zelbFromMspdiDateTime(std::string_view text, bool forceUTC = false);
    [[nodiscard]] static std::optional<std::string> zelbFromMspdiDateOnly(std::string_view text, bool forceUTC = false);
    [[nodiscard]] static std::optional<std::string> zelbFromMppDateTime(std::optional<Date> date,
                                                                        bool forceUTC = false);
    [[nodiscard]] static std::optional<std::string> zelbFromMppDateOnly(std::optional<Date> date,
                                                                        bool forceUTC = false);
    // In the zone that `initialize` captured.
    [[nodiscard]] static std::optional<std::string> mspdiFromMppDateTime(std::optional<Date> date);
    [[nodiscard]] static std::optional<std::string> mspdiFromMppDateOnly(std::optional<Date> date);

    /// The last step of writing a source text: gives the formatter's offset ("+0200") three parts, or replaces it with
    /// "Z". A text without an offset becomes UTC. Failed checks: "No date string specified." for an empty text, and
    /// "[matches count] == 1" for a text with offsets at the ends of several lines.
    [[nodiscard]] static std::string ensureISOTimeZoneFormat(std::string_view text, bool forceUTC);
};

} // namespace brackwater
